# The condition dialogs, the system viewer and the forecast order on the real windows.
add_executable(dv_dialogs_window_tests ${CMAKE_CURRENT_LIST_DIR}/DialoghiTest.cpp)
target_compile_definitions(dv_dialogs_window_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
target_link_libraries(dv_dialogs_window_tests PRIVATE dv_windows Qt6::Test Qt6::Widgets)
add_test(NAME dv_dialogs_window_tests COMMAND dv_dialogs_window_tests)
set_tests_properties(dv_dialogs_window_tests PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
