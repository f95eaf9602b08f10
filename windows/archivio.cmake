# The windows of the archivio area, in a library of their own.
add_library(dv_windows_archivio STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaArchivio.cpp
)
target_link_libraries(dv_windows_archivio PUBLIC dv_windows)
target_link_libraries(dv_windows_all INTERFACE dv_windows_archivio)
