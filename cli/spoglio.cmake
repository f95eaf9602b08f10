# The subcommands of the spoglio area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiSpoglio.cpp)
target_link_libraries(dv_cli PUBLIC dv_prize)
