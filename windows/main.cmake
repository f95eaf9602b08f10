# The main window, the progress window, the splash window and the Qt side of dv::Ui.
list(APPEND DV_WINDOW_SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/QtUi.cpp
    ${CMAKE_CURRENT_LIST_DIR}/QtUiDialogs.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmCalcolo.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmCalcoloWorker.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAIN.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINCondizioni.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINControlli.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINFile.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINGriglia.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINMenu.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINOperazioni.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmMAINPronostico.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmSplash.cpp
)
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/frmMAIN.cpp ${CMAKE_CURRENT_LIST_DIR}/frmSplash.cpp
    PROPERTIES COMPILE_DEFINITIONS "DORVANTA_VERSION=\"${PROJECT_VERSION}\"")
list(APPEND DV_WINDOW_LIBS dv_system_files dv_settings dv_platform dv_filters)
