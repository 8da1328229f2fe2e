# Sources of the bench that know no platform; the native tests build them too.
set(BENCH_LOGIC_SOURCES Bench.cpp)
list(TRANSFORM BENCH_LOGIC_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/bench/")
