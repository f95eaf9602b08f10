# `dorvanta-cli ultimate` and `dorvanta-cli filters import`, run as processes.
add_executable(dv_ultimate_cli_tests ${CMAKE_CURRENT_LIST_DIR}/UltimateCliTest.cpp)
target_include_directories(dv_ultimate_cli_tests PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(dv_ultimate_cli_tests PRIVATE dv_cli GTest::gtest GTest::gtest_main)
target_compile_definitions(dv_ultimate_cli_tests PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>")
add_dependencies(dv_ultimate_cli_tests dorvanta-cli)
gtest_discover_tests(dv_ultimate_cli_tests DISCOVERY_TIMEOUT 60)
