# The subcommands of the ultimate area: the Ultimate search and the filter import.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiUltimate.cpp)
target_link_libraries(dv_cli PUBLIC dv_archive dv_filters)
