# Third-party code: Debian's source packages, and SQLite's amalgamation. The folder of fetched sources is filled by
# cmake/fetch-deps, which checks hashes; it survives `build/`.
set(PELLMARK_DEPS "${CMAKE_SOURCE_DIR}/.cache/deps" CACHE PATH "Fetched third-party sources")

set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)

# One SQLite for every build, so that what the tests run on is what ships.
add_library(sqlite3 STATIC "${PELLMARK_DEPS}/sqlite3/sqlite3.c")
target_include_directories(sqlite3 SYSTEM PUBLIC "${PELLMARK_DEPS}/sqlite3")
target_compile_definitions(sqlite3 PRIVATE SQLITE_THREADSAFE=1 SQLITE_DQS=0 SQLITE_DEFAULT_FOREIGN_KEYS=1
    SQLITE_TRUSTED_SCHEMA=0 SQLITE_ENABLE_FTS5 SQLITE_OMIT_LOAD_EXTENSION SQLITE_DEFAULT_MEMSTATUS=0)
# The sanitizers watch it, too, as far as it works on our memory; unoptimised it would be slow.
target_compile_options(sqlite3 PRIVATE $<IF:$<CONFIG:Debug>,-O1,-O2> -w)
if(NOT WIN32)
    find_package(Threads REQUIRED)
    target_link_libraries(sqlite3 PUBLIC Threads::Threads m)
endif()
