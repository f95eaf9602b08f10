# dorvanta-bench-archivio: converting and loading 500,000 draws, literal and ours, and the whole
# `dorvanta-cli archive show --last 1` process.
add_executable(dorvanta-bench-archivio ${CMAKE_CURRENT_LIST_DIR}/BenchArchivio.cpp)
target_link_libraries(dorvanta-bench-archivio PRIVATE dv_archive dv_archive_reference)
target_include_directories(dorvanta-bench-archivio PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_definitions(dorvanta-bench-archivio PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>")
add_dependencies(dorvanta-bench-archivio dorvanta-cli)
