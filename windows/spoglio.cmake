# The windows of the spoglio area, in a library of their own.
add_library(dv_windows_spoglio STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaSpoglio.cpp
)
target_link_libraries(dv_windows_spoglio PUBLIC dv_windows)
target_link_libraries(dv_windows_all INTERFACE dv_windows_spoglio)
