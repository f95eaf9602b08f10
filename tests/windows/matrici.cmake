# The matrix window on the offscreen platform.
add_executable(dv_matrici_windows_tests
    ${CMAKE_CURRENT_LIST_DIR}/frmMatrTest.cpp
)
target_include_directories(dv_matrici_windows_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(dv_matrici_windows_tests PRIVATE dv_windows_matrici dv_windows_gtest_main Qt6::Test)
target_compile_definitions(dv_matrici_windows_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
add_test(NAME frmMatr COMMAND dv_matrici_windows_tests)
set_tests_properties(frmMatr PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120)
