# The subcommands of the archivio area.
target_sources(dv_cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ComandiArchivio.cpp)
