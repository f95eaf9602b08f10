# The subcommands of the ultimate area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiUltimate.cpp)
