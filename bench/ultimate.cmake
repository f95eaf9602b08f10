# dorvanta-bench-ultimate: the Ultimate search over 30 days of five-minute draws, ambo, terno and
# quaterna with Q = 1, literal and ours.
add_executable(dorvanta-bench-ultimate ${CMAKE_CURRENT_LIST_DIR}/BenchUltimate.cpp)
target_link_libraries(dorvanta-bench-ultimate PRIVATE dv_archive dv_filters)
target_include_directories(dorvanta-bench-ultimate PRIVATE ${PROJECT_SOURCE_DIR})
