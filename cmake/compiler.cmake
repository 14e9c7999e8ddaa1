# How the compiler is called. What changes the meaning of library types (sanitizers, assertions, static linking) goes
# to every target, third-party code included; warnings and platform definitions go to our own code only, through
# jotlets_warnings and jotlets_options.

if(MSVC)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
  # Debug is what the sanitizers run on: -O1 keeps them bearable and traces readable, and assert() stays.
  set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g -fno-omit-frame-pointer")
  set(CMAKE_C_FLAGS_DEBUG "-O1 -g -fno-omit-frame-pointer")
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
  set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
  if(NOT JOTLETS_BENCH)
    add_compile_definitions($<$<COMPILE_LANGUAGE:CXX>:_GLIBCXX_ASSERTIONS>)
  endif()
endif()

if(MINGW)
  # One file to copy: no run-time library beside the program. Import libraries of shared ones are not looked at.
  add_link_options(-static)
  set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
endif()

if(JOTLETS_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all)
  add_compile_options(${sanitizers})
  add_link_options(${sanitizers})
endif()
if(JOTLETS_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

add_library(jotlets_options INTERFACE)
target_include_directories(jotlets_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(WIN32)
  target_compile_definitions(jotlets_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()
if(MSVC)
  target_compile_options(jotlets_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:/utf-8 /permissive- /Zc:__cplusplus /Zc:preprocessor /EHsc>)
  target_compile_definitions(jotlets_options INTERFACE _CRT_SECURE_NO_WARNINGS)
elseif(NOT JOTLETS_BENCH)
  # Also a link option, which is what brings in the library that MinGW needs for it.
  target_compile_options(jotlets_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fstack-protector-strong>)
  target_link_options(jotlets_options INTERFACE -fstack-protector-strong)
endif()

# Every option is guarded by the language: the resource compiler would take them for its own.
add_library(jotlets_warnings INTERFACE)
if(MSVC)
  set(warnings /W4 /WX /w14062 /w14242 /w14254 /w14263 /w14265 /w14287 /w14296 /w14545 /w14546 /w14547 /w14549
    /w14555 /w14619 /w14640 /w14826 /w14905 /w14906 /w14928)
else()
  set(warnings -Wall -Wextra -Wpedantic -Werror -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Wextra-semi -Wformat=2 -Wundef -Wunused
    # `STARTUPINFOW info{sizeof info}` and designated initialisers mean the rest to be zero.
    -Wno-missing-field-initializers)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND warnings -Wduplicated-cond -Wlogical-op
      # GCC 12 reports overlapping copies inside std::string where there are none.
      -Wno-restrict)
    if(WIN32)
      # Every use of GetProcAddress is such a cast.
      list(APPEND warnings -Wno-cast-function-type)
    endif()
    if(JOTLETS_SANITIZE)
      # The instrumentation hides initialisations from the analysis behind it.
      list(APPEND warnings -Wno-maybe-uninitialized)
    endif()
  else()
    # Part of -Wconversion with clang, not with GCC: both are to agree.
    list(APPEND warnings -Wno-sign-conversion)
  endif()
endif()
target_compile_options(jotlets_warnings INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")
