# dorvanta-bench-statistiche: the draw statistics over 500,000 five-minute draws, literal and ours.
add_executable(dorvanta-bench-statistiche ${CMAKE_CURRENT_LIST_DIR}/BenchStatistiche.cpp)
target_link_libraries(dorvanta-bench-statistiche PRIVATE dv_archive)
target_include_directories(dorvanta-bench-statistiche PRIVATE ${PROJECT_SOURCE_DIR})
