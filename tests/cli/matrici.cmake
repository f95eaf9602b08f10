# dorvanta-cli's matrix subcommands, run as a process.
add_executable(dv_cli_matrici_tests ${CMAKE_CURRENT_LIST_DIR}/MatriciCliTest.cpp)
target_include_directories(dv_cli_matrici_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(dv_cli_matrici_tests PRIVATE dv_matrix GTest::gtest GTest::gtest_main)
target_compile_definitions(dv_cli_matrici_tests PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>")
add_dependencies(dv_cli_matrici_tests dorvanta-cli)
gtest_discover_tests(dv_cli_matrici_tests DISCOVERY_TIMEOUT 60)
