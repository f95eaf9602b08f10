# The windows of the stampa area, in a library of their own.
add_library(dv_windows_stampa STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaStampa.cpp
)
target_link_libraries(dv_windows_stampa PUBLIC dv_windows)
target_link_libraries(dv_windows_all INTERFACE dv_windows_stampa)
