# The subcommands of the statistiche area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiStatistiche.cpp)
