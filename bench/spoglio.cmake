# dorvanta-bench-spoglio: the literal checks against the program's on the integral system of
# 1..23 at length 10 (1,144,066 columns).
add_executable(dorvanta-bench-spoglio ${CMAKE_CURRENT_LIST_DIR}/BenchSpoglio.cpp)
target_link_libraries(dorvanta-bench-spoglio PRIVATE dv_prize dv_reference_spoglio)
target_include_directories(dorvanta-bench-spoglio PRIVATE ${PROJECT_SOURCE_DIR})
