# The printing windows on the offscreen platform: listing, slips with their progress window, and
# the slip calibration, printing into PDF files.
add_executable(dv_stampa_window_tests ${CMAKE_CURRENT_LIST_DIR}/frmStampaTest.cpp)
target_include_directories(dv_stampa_window_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_compile_definitions(dv_stampa_window_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
target_link_libraries(dv_stampa_window_tests PRIVATE dv_windows_stampa dv_windows_gtest_main Qt6::Test)
gtest_discover_tests(dv_stampa_window_tests DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
