# The windows of the statistiche area, in a library of their own.
find_package(Qt6 REQUIRED COMPONENTS Charts)
add_library(dv_windows_statistiche STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaStatistiche.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmStatistiche.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmStatisticheGrafico.cpp
)
target_link_libraries(dv_windows_statistiche PUBLIC dv_windows dv_archive Qt6::Charts)
target_link_libraries(dv_windows_all INTERFACE dv_windows_statistiche)
