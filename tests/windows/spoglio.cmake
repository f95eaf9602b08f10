# The check windows, wired into the main window, on the offscreen platform.
add_executable(dv_spoglio_window_tests ${CMAKE_CURRENT_LIST_DIR}/frmSpoglioTest.cpp)
target_link_libraries(dv_spoglio_window_tests PRIVATE dv_windows_spoglio dv_windows_gtest_main Qt6::Test)
target_compile_definitions(dv_spoglio_window_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
gtest_discover_tests(dv_spoglio_window_tests DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
