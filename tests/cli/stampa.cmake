# `dorvanta-cli print`, run as a process. dv_cli carries the print renderer, whose Qt targets this
# folder must know.
find_package(Qt6 REQUIRED COMPONENTS Gui PrintSupport)
add_executable(dv_stampa_cli_tests ${CMAKE_CURRENT_LIST_DIR}/StampaCliTest.cpp)
target_include_directories(dv_stampa_cli_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(dv_stampa_cli_tests PRIVATE dv_cli GTest::gtest GTest::gtest_main)
target_compile_definitions(dv_stampa_cli_tests PRIVATE DV_CLI_PATH="$<TARGET_FILE:dorvanta-cli>")
add_dependencies(dv_stampa_cli_tests dorvanta-cli)
gtest_discover_tests(dv_stampa_cli_tests DISCOVERY_TIMEOUT 60)
