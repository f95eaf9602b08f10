# The subcommands of the spoglio area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiSpoglio.cpp)
