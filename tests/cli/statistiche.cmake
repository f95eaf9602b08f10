# `dorvanta-cli stats`, run as a process.
add_executable(dv_statistiche_cli_tests ${CMAKE_CURRENT_LIST_DIR}/StatisticheCliTest.cpp)
target_link_libraries(dv_statistiche_cli_tests PRIVATE dv_cli GTest::gtest GTest::gtest_main)
target_compile_definitions(dv_statistiche_cli_tests PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>"
    DV_LANGUAGE_FILE="${PROJECT_SOURCE_DIR}/languages/italiano.lng")
add_dependencies(dv_statistiche_cli_tests dorvanta-cli)
gtest_discover_tests(dv_statistiche_cli_tests DISCOVERY_TIMEOUT 60)
