# The windows of the ultimate area, in a library of their own.
add_library(dv_windows_ultimate STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaUltimate.cpp
)
target_link_libraries(dv_windows_ultimate PUBLIC dv_windows)
target_link_libraries(dv_windows_all INTERFACE dv_windows_ultimate)
