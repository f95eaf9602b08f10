# Builds the fuzz targets with clang and libFuzzer in BUILD_DIR and fuzzes them from their seed
# corpora. A failing input is left in BUILD_DIR as crash-*, leak-*, oom-* or timeout-*.
#   -DBUILD_ONLY=ON           configure and build every target, fuzz none
#   -DTARGET=name             fuzz that target only (already built) for SECONDS
#   neither                   build every target, then fuzz each in turn for SECONDS
# TIMEOUT (seconds, default 1) is the longest one input may take before it counts as a hang.
foreach(var SOURCE_DIR BUILD_DIR)
    if(NOT DEFINED ${var})
        message(FATAL_ERROR "EseguiLibFuzzer.cmake needs -D${var}=...")
    endif()
endforeach()
if(NOT DEFINED TIMEOUT)
    set(TIMEOUT 1)
endif()

if(NOT DEFINED TARGET)
    foreach(var CLANGXX GENERATOR)
        if(NOT DEFINED ${var})
            message(FATAL_ERROR "EseguiLibFuzzer.cmake needs -D${var}=...")
        endif()
    endforeach()
    execute_process(
        COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${BUILD_DIR} -G ${GENERATOR}
                -DCMAKE_CXX_COMPILER=${CLANGXX} -DCMAKE_BUILD_TYPE=Debug -DDORVANTA_SANITIZE=ON
                -DDORVANTA_LIBFUZZER=ON -DDORVANTA_BUILD_BENCH=OFF -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link
        OUTPUT_QUIET RESULT_VARIABLE rc)
    if(rc)
        message(FATAL_ERROR "configuring the libFuzzer build failed")
    endif()
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD_DIR} --target dv_fuzzers -j 2 RESULT_VARIABLE rc)
    if(rc)
        message(FATAL_ERROR "building the fuzz targets with clang failed")
    endif()
    if(BUILD_ONLY)
        return()
    endif()
endif()

if(NOT DEFINED SECONDS)
    message(FATAL_ERROR "EseguiLibFuzzer.cmake needs -DSECONDS=...")
endif()
if(DEFINED TARGET)
    set(targets ${TARGET})
else()
    file(GLOB sources RELATIVE ${SOURCE_DIR}/fuzz/corpus ${SOURCE_DIR}/fuzz/corpus/*)
    set(targets)
    foreach(name IN LISTS sources)
        if(IS_DIRECTORY ${SOURCE_DIR}/fuzz/corpus/${name} AND EXISTS ${BUILD_DIR}/fuzz/dv_${name}_fuzzer)
            list(APPEND targets ${name})
        endif()
    endforeach()
endif()

set(failed)
foreach(name IN LISTS targets)
    # New inputs go to a scratch corpus; the seed corpus in the sources is only read.
    set(scratch ${BUILD_DIR}/corpus/${name})
    file(REMOVE_RECURSE ${scratch})
    file(MAKE_DIRECTORY ${scratch})
    message(STATUS "fuzzing ${name} for ${SECONDS} s")
    execute_process(
        COMMAND ${BUILD_DIR}/fuzz/dv_${name}_fuzzer -max_total_time=${SECONDS} -timeout=${TIMEOUT}
                -print_final_stats=1 -artifact_prefix=${BUILD_DIR}/${name}- ${scratch}
                ${SOURCE_DIR}/fuzz/corpus/${name}
        RESULT_VARIABLE rc)
    if(rc)
        list(APPEND failed ${name})
    endif()
endforeach()
if(failed)
    message(FATAL_ERROR "libFuzzer found inputs that break: ${failed} (see ${BUILD_DIR})")
endif()
