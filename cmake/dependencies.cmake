# The libraries we call. On Debian GoogleTest comes as source and is built once per preset; elsewhere it is a package.
find_package(ZLIB REQUIRED)
find_package(PNG REQUIRED)

# SQLite is compiled here where scripts/setup has put its source together, with what the program does not use left out.
set(sqlite ${PROJECT_SOURCE_DIR}/build/deps/sqlite)
if(EXISTS ${sqlite}/sqlite3.c)
  add_library(jotlets_sqlite STATIC ${sqlite}/sqlite3.c)
  target_include_directories(jotlets_sqlite SYSTEM PUBLIC ${sqlite})
  target_compile_definitions(jotlets_sqlite PRIVATE
    SQLITE_THREADSAFE=1 SQLITE_ENABLE_FTS5 SQLITE_DQS=0 SQLITE_DEFAULT_MEMSTATUS=0 SQLITE_LIKE_DOESNT_MATCH_BLOBS
    SQLITE_OMIT_DEPRECATED SQLITE_OMIT_SHARED_CACHE SQLITE_OMIT_LOAD_EXTENSION)
  # It picks one of two arrays of pointers in one expression, of which that check takes the wrong one's size.
  target_compile_options(jotlets_sqlite PRIVATE -w -fno-sanitize=object-size)
else()
  find_package(unofficial-sqlite3 CONFIG REQUIRED)
  add_library(jotlets_sqlite INTERFACE)
  target_link_libraries(jotlets_sqlite INTERFACE unofficial::sqlite3::sqlite3)
endif()

# Expat in the same way. Its limits on entities inside each other are part of what it does with document types.
set(expat ${PROJECT_SOURCE_DIR}/build/deps/expat)
if(EXISTS ${expat}/xmlparse.c)
  add_library(jotlets_expat STATIC ${expat}/xmlparse.c ${expat}/xmlrole.c ${expat}/xmltok.c)
  target_include_directories(jotlets_expat PRIVATE ${PROJECT_SOURCE_DIR}/cmake/expat)
  target_include_directories(jotlets_expat SYSTEM PUBLIC ${expat})
  target_compile_definitions(jotlets_expat PUBLIC XML_STATIC XML_DTD XML_GE=1)
  target_compile_options(jotlets_expat PRIVATE -w)
else()
  find_package(expat CONFIG REQUIRED)
  add_library(jotlets_expat INTERFACE)
  target_link_libraries(jotlets_expat INTERFACE expat::expat)
  target_compile_definitions(jotlets_expat INTERFACE XML_DTD XML_GE=1)
endif()

if(JOTLETS_TESTS)
  set(googletest_source /usr/src/googletest)
  if(CMAKE_HOST_UNIX AND EXISTS ${googletest_source}/CMakeLists.txt)
    set(INSTALL_GTEST OFF)
    set(BUILD_GMOCK ON)
    add_subdirectory(${googletest_source} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    foreach(target gtest gtest_main gmock gmock_main)
      target_compile_options(${target} PRIVATE -w)
    endforeach()
  else()
    find_package(GTest CONFIG REQUIRED)
  endif()
endif()

if(JOTLETS_BENCH OR (JOTLETS_SANITIZE AND JOTLETS_TESTS))
  set(JOTLETS_WITH_BENCHMARK ON)
  find_package(benchmark CONFIG REQUIRED)
endif()
