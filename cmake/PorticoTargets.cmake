# What every target of the project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

if(CMAKE_BUILD_TYPE STREQUAL "Release")
  set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
endif()

add_library(portico_options INTERFACE)
target_compile_options(portico_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
# GCC 12 sees overlapping copies in its own string header when it optimises.
target_compile_options(portico_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(PORTICO_SANITIZE)
  target_compile_options(portico_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    -fno-sanitize=null,alignment # the address sanitizer stops at a null pointer, too, and nothing here casts to a
                                 # stricter alignment; a sixth less to compile
    -Og # as quick to compile, and the tests run in a third of the time
    -g1) # enough for the lines of a report, and a third less to compile
  target_link_options(portico_options INTERFACE -fsanitize=address,undefined)
endif()
if(PORTICO_FUZZ)
  target_compile_options(portico_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(portico_options INTERFACE -fsanitize=address,undefined)
endif()
if(PORTICO_TIDY)
  find_program(CLANG_TIDY NAMES clang-tidy clang-tidy-14 REQUIRED)
  set(CMAKE_CXX_CLANG_TIDY "${CLANG_TIDY};--warnings-as-errors=*;--quiet")
endif()

# portico_library(FOLDER SOURCES ... LINK ... PUBLIC ... PRIVATE ...): one folder of src/, one target: portico_ and the
# folder's path. Its headers are reachable as "FOLDER/...", and only for those who link the target: the include directory
# holds links to these headers and nothing else, so that an include which the layers forbid does not build.
# LINK names the folders that it may include, each of which must have been added before, so that no arrow points up;
# PUBLIC and PRIVATE name libraries from outside, the latter those that its users need not see.
function(portico_library folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PUBLIC;PRIVATE" ${ARGN})
  get_property(below GLOBAL PROPERTY PORTICO_BELOW)
  set(links ${ARG_PUBLIC})
  foreach(lower ${ARG_LINK})
    if(NOT lower IN_LIST below)
      message(FATAL_ERROR "${folder} may not include ${lower}, which does not stand below it")
    endif()
    string(REPLACE "/" "_" lower "portico_${lower}")
    list(APPEND links ${lower})
  endforeach()
  string(REPLACE "/" "_" name "${folder}")
  set(root "${PROJECT_BINARY_DIR}/include/${name}")
  file(REMOVE_RECURSE "${root}") # may hold links to headers that are gone
  file(MAKE_DIRECTORY "${root}/${folder}")
  file(GLOB headers CONFIGURE_DEPENDS "*.h")
  foreach(header ${headers})
    get_filename_component(file "${header}" NAME)
    file(CREATE_LINK "${header}" "${root}/${folder}/${file}" SYMBOLIC)
  endforeach()
  if(ARG_SOURCES)
    add_library(portico_${name} STATIC ${ARG_SOURCES})
    target_include_directories(portico_${name} PUBLIC "${root}")
    target_link_libraries(portico_${name} PUBLIC ${links} PRIVATE portico_options ${ARG_PRIVATE})
  else()
    add_library(portico_${name} INTERFACE)
    target_include_directories(portico_${name} INTERFACE "${root}")
    target_link_libraries(portico_${name} INTERFACE ${links})
  endif()
  string(REPLACE ";" " " line "${folder}: ${ARG_LINK}")
  set_property(GLOBAL APPEND PROPERTY PORTICO_LAYERS "${line}")
  set_property(GLOBAL APPEND PROPERTY PORTICO_FOLDERS "${folder}")
  set_property(GLOBAL APPEND PROPERTY PORTICO_BELOW "${folder}")
endfunction()

# portico_house(FOLDER ROOMS ...): all rooms of a folder that has no files of its own, for those who want them all.
function(portico_house folder)
  cmake_parse_arguments(ARG "" "" "ROOMS" ${ARGN})
  list(TRANSFORM ARG_ROOMS PREPEND "portico_${folder}_")
  add_library(portico_${folder} INTERFACE)
  target_link_libraries(portico_${folder} INTERFACE ${ARG_ROOMS})
  set_property(GLOBAL APPEND PROPERTY PORTICO_BELOW "${folder}")
endfunction()

# What nearly every test includes is compiled once for all of them, and once more for those that use Qt, which wants
# position-independent code of its users: a precompiled header serves only what is compiled the same way.
function(portico_precompile_for_tests)
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/test_precompiled.cpp" CONTENT "")
  set(kinds test_precompiled)
  if(PORTICO_WINDOW)
    list(APPEND kinds test_precompiled_qt)
  endif()
  foreach(kind ${kinds})
    add_library(${kind} OBJECT "${PROJECT_BINARY_DIR}/test_precompiled.cpp")
    target_link_libraries(${kind} PRIVATE GTest::gmock portico_options)
    target_precompile_headers(${kind} PRIVATE
      <gtest/gtest.h> <algorithm> <filesystem> <functional> <map> <optional> <sstream> <string> <vector>)
  endforeach()
  if(PORTICO_WINDOW)
    target_link_libraries(test_precompiled_qt PRIVATE Qt6::Core)
  endif()
endfunction()

# portico_test(NAME SOURCES ... LINK ...): one GoogleTest program; each of its suites is a test of ctest's, "NAME.Suite".
function(portico_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(test_${name} ${ARG_SOURCES})
  target_include_directories(test_${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(test_${name} PRIVATE ${ARG_LINK} portico_test_main portico_options)
  if("${ARG_LINK}" MATCHES "Qt6::|portico_qt")
    target_precompile_headers(test_${name} REUSE_FROM test_precompiled_qt)
  else()
    target_precompile_headers(test_${name} REUSE_FROM test_precompiled)
  endif()
  set(programs "${PROJECT_BINARY_DIR}/tests")
  set_target_properties(test_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${programs}")
  set(suites "${CMAKE_CURRENT_BINARY_DIR}/test_${name}_suites.cmake")
  file(CONFIGURE OUTPUT "${suites}" @ONLY CONTENT [[
include("@PROJECT_SOURCE_DIR@/cmake/TestSuites.cmake")
add_suites("@name@" "@programs@/test_@name@")
]])
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${suites}")
endfunction()
