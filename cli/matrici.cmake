# The subcommands of the matrici area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiMatrici.cpp)
target_link_libraries(dv_cli PUBLIC dv_matrix)
