# Builds the fuzz target with clang and libFuzzer in BUILD_DIR, then fuzzes it for SECONDS from
# the seed corpus. A failing input is left in BUILD_DIR as crash-*, leak-* or timeout-*.
foreach(var SOURCE_DIR BUILD_DIR CLANGXX GENERATOR SECONDS)
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
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD_DIR} --target dv_aprifile_fuzzer -j 2 RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "building the fuzz target with clang failed")
endif()

# New inputs go to a scratch corpus; the seed corpus in the sources is only read.
file(REMOVE_RECURSE ${BUILD_DIR}/corpus)
file(MAKE_DIRECTORY ${BUILD_DIR}/corpus)
execute_process(
    COMMAND ${BUILD_DIR}/fuzz/dv_aprifile_fuzzer -max_total_time=${SECONDS} -print_final_stats=1
            -artifact_prefix=${BUILD_DIR}/ ${BUILD_DIR}/corpus ${SOURCE_DIR}/fuzz/corpus
    RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "libFuzzer found an input that breaks ApriFile: see ${BUILD_DIR}")
endif()
