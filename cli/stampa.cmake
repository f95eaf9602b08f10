# The subcommands of the stampa area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiStampa.cpp)
