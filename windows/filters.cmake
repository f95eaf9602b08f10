# The windows of the filter tables and of the distance conditions.
list(APPEND DV_WINDOW_SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/frmFiltri.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmFiltriDistanzaNumeri.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmFiltriPannelli.cpp
)
list(APPEND DV_WINDOW_LIBS dv_filters dv_platform)
