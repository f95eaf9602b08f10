# The condition dialogs, the system viewer and the forecast order.
list(APPEND DV_WINDOW_SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/DialoghiCondizione.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmConsecutivi.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmDistanzaMinima.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmFisse.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmOrdinaPronostico.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmPari.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmRidotto.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmSomma.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmVisualizza.cpp
)
list(APPEND DV_WINDOW_LIBS dv_platform)
