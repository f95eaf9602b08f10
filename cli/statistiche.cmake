# The subcommands of the statistiche area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiStatistiche.cpp)
target_link_libraries(dv_cli PUBLIC dv_archive)
