# The windows of the stampa area, in a library of their own: the listing, the slips with their
# progress window, and the slip calibration.
add_library(dv_windows_stampa STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaStampa.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmPrnInCorso.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmStampa.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmStampaSupporto.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmTabulato.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmTaratura10eLotto.cpp
)
target_link_libraries(dv_windows_stampa PUBLIC dv_windows dv_print dv_platform_stampa)
target_link_libraries(dv_windows_all INTERFACE dv_windows_stampa)
