# The windows of the filter tables and of the distance conditions.
add_executable(frmFiltriTest ${CMAKE_CURRENT_LIST_DIR}/frmFiltriTest.cpp)
target_link_libraries(frmFiltriTest PRIVATE dv_windows dv_filters Qt6::Test Qt6::Widgets)
target_include_directories(frmFiltriTest PRIVATE ${PROJECT_SOURCE_DIR})
add_test(NAME frmFiltriTest COMMAND frmFiltriTest)
set_tests_properties(frmFiltriTest PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
