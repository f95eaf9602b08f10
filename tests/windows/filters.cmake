# The windows of the filter tables and of the distance conditions.
foreach(test frmFiltriTest frmFiltriDistanzaNumeriTest)
    add_executable(${test} ${CMAKE_CURRENT_LIST_DIR}/${test}.cpp)
    target_link_libraries(${test} PRIVATE dv_windows dv_filters Qt6::Test Qt6::Widgets)
    target_include_directories(${test} PRIVATE ${PROJECT_SOURCE_DIR})
    add_test(NAME ${test} COMMAND ${test})
    set_tests_properties(${test} PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endforeach()
