# The windows of the spoglio area, in a library of their own.
add_library(dv_windows_spoglio STATIC
    ${CMAKE_CURRENT_LIST_DIR}/CollegaSpoglio.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmSpoglio.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmSpoglioEstrazioni.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmSpoglioGriglia.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmVerificaSistemi.cpp
)
target_link_libraries(dv_windows_spoglio PUBLIC dv_windows dv_prize)
target_link_libraries(dv_windows_all INTERFACE dv_windows_spoglio)
