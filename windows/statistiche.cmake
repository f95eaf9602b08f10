# The windows of the statistiche area, in a library of their own.
add_library(dv_windows_statistiche STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaStatistiche.cpp
)
target_link_libraries(dv_windows_statistiche PUBLIC dv_windows)
target_link_libraries(dv_windows_all INTERFACE dv_windows_statistiche)
