# dorvanta-bench-matrici: the catalogue of 100 matrices of 100,000 columns, and the guarantee check
# of V = 30, M = 6 against 1,000 columns, each literal and ours.
add_executable(dorvanta-bench-matrici ${CMAKE_CURRENT_LIST_DIR}/BenchMatrici.cpp)
target_link_libraries(dorvanta-bench-matrici PRIVATE dv_matrix)
target_include_directories(dorvanta-bench-matrici PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
