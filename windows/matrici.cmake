# The windows of the matrici area, in a library of their own.
add_library(dv_windows_matrici STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaMatrici.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMatr.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMatr.h
)
target_link_libraries(dv_windows_matrici PUBLIC dv_windows dv_matrix)
target_link_libraries(dv_windows_all INTERFACE dv_windows_matrici)
