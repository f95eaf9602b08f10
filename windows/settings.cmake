# The settings window, the about window and the new-version window.
list(APPEND DV_WINDOW_SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/AttesaDownload.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmAbout.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmImpostazioni.cpp
    ${CMAKE_CURRENT_LIST_DIR}/frmNewVersion.cpp
)
list(APPEND DV_WINDOW_LIBS dv_settings dv_platform)
