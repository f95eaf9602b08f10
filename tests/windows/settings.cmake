# The settings window, the about window and the new-version window, with the real web server.
add_executable(dv_settings_windows_tests
    ${CMAKE_CURRENT_LIST_DIR}/SettingsWindowsTest.cpp
)
target_include_directories(dv_settings_windows_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(dv_settings_windows_tests PRIVATE dv_windows dv_windows_gtest_main Qt6::Test)
target_compile_definitions(dv_settings_windows_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
if(TARGET dorvanta-server)
    target_compile_definitions(dv_settings_windows_tests PRIVATE DV_SERVER_BINARY="$<TARGET_FILE:dorvanta-server>")
    add_dependencies(dv_settings_windows_tests dorvanta-server)
endif()
gtest_discover_tests(dv_settings_windows_tests DISCOVERY_TIMEOUT 60)
