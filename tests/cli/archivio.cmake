# `dorvanta-cli archive ...`, run as a process.
add_executable(dv_archivio_cli_tests ${CMAKE_CURRENT_LIST_DIR}/ArchivioCliTest.cpp)
target_include_directories(dv_archivio_cli_tests PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(dv_archivio_cli_tests PRIVATE GTest::gtest GTest::gtest_main)
target_compile_definitions(dv_archivio_cli_tests PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>"
    DV_LANGUAGE_FILE="${PROJECT_SOURCE_DIR}/languages/italiano.lng"
    DV_ARCHIVE_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/archive/data")
add_dependencies(dv_archivio_cli_tests dorvanta-cli)
gtest_discover_tests(dv_archivio_cli_tests DISCOVERY_TIMEOUT 60)
