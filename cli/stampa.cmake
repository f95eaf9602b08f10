# The subcommands of the stampa area: the layouts, and the renderer for PDF files and printers.
find_package(Qt6 REQUIRED COMPONENTS Gui PrintSupport)
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiStampa.cpp)
target_link_libraries(dv_cli PUBLIC dv_print dv_platform_stampa)
