# The main window, the progress window and the settings reached from it, driven on the offscreen
# platform as a user drives them.
add_executable(dv_frmMAIN_tests ${CMAKE_CURRENT_LIST_DIR}/frmMAINTest.cpp)
target_link_libraries(dv_frmMAIN_tests PRIVATE dv_windows Qt6::Test)
target_compile_definitions(dv_frmMAIN_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
add_test(NAME frmMAIN COMMAND dv_frmMAIN_tests)
set_tests_properties(frmMAIN PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300)
