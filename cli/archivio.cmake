# The subcommands of the archivio area. Their downloads use the desktop program's DownloadFile,
# compiled here against Qt's Core and Network modules only, so dorvanta-cli links no windows.
find_package(Qt6 REQUIRED COMPONENTS Core Network)
add_library(dv_cli_download STATIC
    ${PROJECT_SOURCE_DIR}/platform/DownloadFile.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReteArchivio.cpp
)
target_include_directories(dv_cli_download PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(dv_cli_download PUBLIC dv_settings Qt6::Core Qt6::Network)

target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiArchivio.cpp)
target_link_libraries(dv_cli PUBLIC dv_archive dv_cli_download)
