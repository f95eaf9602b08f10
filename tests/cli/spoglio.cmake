# `dorvanta-cli check`, `check-archive` and `compare`, run as processes.
add_executable(dv_spoglio_cli_tests ${CMAKE_CURRENT_LIST_DIR}/SpoglioCliTest.cpp)
target_link_libraries(dv_spoglio_cli_tests PRIVATE dv_cli dv_prize GTest::gtest GTest::gtest_main)
target_compile_definitions(dv_spoglio_cli_tests PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>"
    DV_PRIZE_DATA="${PROJECT_SOURCE_DIR}/tests/prize/data")
add_dependencies(dv_spoglio_cli_tests dorvanta-cli)
gtest_discover_tests(dv_spoglio_cli_tests DISCOVERY_TIMEOUT 60)
