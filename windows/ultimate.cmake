# The windows of the ultimate area, in a library of their own: the Ultimate search and the filter
# import.
add_library(dv_windows_ultimate STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaUltimate.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmImportFiltri.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmImportFiltri.h
    ${CMAKE_CURRENT_LIST_DIR}/frmUltimate.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmUltimate.h
)
target_link_libraries(dv_windows_ultimate PUBLIC dv_windows dv_archive dv_filters)
target_link_libraries(dv_windows_all INTERFACE dv_windows_ultimate)
