# The archive window, wired into the main window, on the offscreen platform, updating from a real
# dorvanta-server.
add_executable(dv_archivio_window_tests ${CMAKE_CURRENT_LIST_DIR}/frmUpdateTest.cpp)
target_include_directories(dv_archivio_window_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(dv_archivio_window_tests PRIVATE dv_windows_archivio dv_windows_gtest_main Qt6::Test)
target_compile_definitions(dv_archivio_window_tests PRIVATE DV_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    DV_SERVER_BINARY="$<TARGET_FILE:dorvanta-server>")
add_dependencies(dv_archivio_window_tests dorvanta-server)
gtest_discover_tests(dv_archivio_window_tests DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
