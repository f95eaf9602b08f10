# dorvanta-bench-stampa: slips of 10,000 columns and a listing of 100,000 columns into PDF files,
# printed directly and replayed from their recorded operations, with the memory they take.
find_package(Qt6 REQUIRED COMPONENTS Gui PrintSupport)
add_executable(dorvanta-bench-stampa ${CMAKE_CURRENT_LIST_DIR}/BenchStampa.cpp)
target_link_libraries(dorvanta-bench-stampa PRIVATE dv_platform_stampa)
target_include_directories(dorvanta-bench-stampa PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
