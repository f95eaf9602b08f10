# The windows of the archivio area, in a library of their own.
add_library(dv_windows_archivio STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaArchivio.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmUpdate.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmUpdateModello.cpp
)
target_link_libraries(dv_windows_archivio PUBLIC dv_windows dv_archive)
target_link_libraries(dv_windows_all INTERFACE dv_windows_archivio)
