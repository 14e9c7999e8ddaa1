# Translations: libraries of resources and nothing else, which the program takes when they lie beside it.

# jotlets_resource_library(<name> <script> <folder> [OUTPUT_NAME <name>])
# A library of the resources of a script, in a folder of the build.
function(jotlets_resource_library name script folder)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "OUTPUT_NAME" "")
  add_library(${name} MODULE ${script})
  set_target_properties(${name} PROPERTIES
    PREFIX "" LINKER_LANGUAGE C LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${folder}
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${folder})
  if(arg_OUTPUT_NAME)
    set_target_properties(${name} PROPERTIES OUTPUT_NAME ${arg_OUTPUT_NAME})
  endif()
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src/res)
  if(MSVC)
    target_link_options(${name} PRIVATE /NOENTRY)
  else()
    target_link_options(${name} PRIVATE -nostdlib -s -Wl,--entry,0)
  endif()
endfunction()

# jotlets_language(<code>)
# <build>/languages/<code>/language80.dll, of src/res/languages/<code>.po. Not beside the program, which would take it.
function(jotlets_language code)
  if(NOT WIN32)
    return()
  endif()
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(res ${PROJECT_SOURCE_DIR}/src/res)
  set(script ${PROJECT_BINARY_DIR}/languages/${code}.rc)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/languages)
  file(GLOB sources CONFIGURE_DEPENDS ${res}/*.rc ${res}/*.h)
  add_custom_command(OUTPUT ${script}
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/scripts/languages make ${code} ${script}
    DEPENDS ${PROJECT_SOURCE_DIR}/scripts/languages ${res}/languages/${code}.po ${sources}
    COMMENT "Translating into ${code}" VERBATIM)
  jotlets_resource_library(language_${code} ${script} languages/${code} OUTPUT_NAME language80)
endfunction()
