# The rules every folder of the house builds under, and the words to declare one:
#   varnhold_library(NAME SOURCES ... USES ...)   a folder is a target; USES is all it may link; with HIDDEN before
#                                                 SOURCES its functions are not for other libraries, with OWN_HEADERS
#                                                 it precompiles headers of its own
#   varnhold_test(NAME SOURCES ... USES ...)      one GoogleTest program, run shuffled by ctest; with DISPLAY before
#                                                 SOURCES, on a virtual display of its own
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

set(VARNHOLD_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
string(REPLACE "," ";" sanitizers "${VARNHOLD_SANITIZE}")
option(VARNHOLD_FUZZ "Build the libFuzzer targets instead of the tests" OFF)

# Objects are the same wherever the checkout lies, so that a compiler cache outside the tree serves every clone. A test
# that needs the tree names it in a definition on its one source file.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
endif()

if(VARNHOLD_SANITIZE)
  add_compile_options(-fsanitize=${VARNHOLD_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all -O1)
  add_link_options(-fsanitize=${VARNHOLD_SANITIZE})
endif()
if(VARNHOLD_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(WIN32)
  add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
  add_link_options(-static)
endif()

add_library(varnhold_warnings INTERFACE)
target_compile_options(varnhold_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

# What most sources include of the standard library, compiled once: half of what they take to compile. Sources include
# what they use all the same; the static checks compile them without it.
set(varnhold_common_headers <algorithm> <array> <chrono> <cstdint> <functional> <map> <memory> <optional> <string>
                            <string_view> <utility> <vector>)

function(varnhold_library name)
  cmake_parse_arguments(arg "HIDDEN;OWN_HEADERS" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_USES} PRIVATE varnhold_warnings)
  if(arg_HIDDEN)
    set_target_properties(${name} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  endif()
  # The other compiler of the fuzzers makes nothing that the compiler cache takes.
  if(VARNHOLD_FUZZ OR arg_OWN_HEADERS)
    return()
  endif()
  if(arg_HIDDEN OR name STREQUAL "base")
    target_precompile_headers(${name} PRIVATE ${varnhold_common_headers})
  else()
    target_precompile_headers(${name} REUSE_FROM base)
  endif()
endfunction()

# Most of what a test costs to compile are the templates that the others need too. Joined, the tests of a program are a
# few sources; not those with a definition of their own. They are named as from the tree, as the compiler cache wants it.
option(VARNHOLD_JOIN_TESTS "Compile the tests of a program together, some at a time" OFF)
set(varnhold_most_joined 5)
function(varnhold_join_tests name)
  get_target_property(sources ${name} SOURCES)
  set(joined "")
  set(others "")
  foreach(source IN LISTS sources)
    get_source_file_property(definitions ${source} COMPILE_DEFINITIONS)
    if(source MATCHES "^[A-Za-z0-9_/]+_test\\.cpp$" AND NOT definitions)
      list(APPEND joined ${source})
    else()
      list(APPEND others ${source})
    endif()
  endforeach()
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  list(LENGTH joined count)
  math(EXPR parts "(${count} + ${varnhold_most_joined} - 1) / ${varnhold_most_joined}")
  set(done 0)
  set(part 0)
  foreach(source IN LISTS joined)
    string(APPEND text "#include \"${folder}/${source}\"\n")
    math(EXPR done "${done} + 1")
    math(EXPR before "${done} * ${parts} / ${count}")
    if(before GREATER part)
      set(file ${CMAKE_CURRENT_BINARY_DIR}/${name}_${part}.cpp)
      file(CONFIGURE OUTPUT ${file} CONTENT "${text}" @ONLY)
      list(APPEND others ${file})
      set(text "")
      set(part ${before})
    endif()
  endforeach()
  set_target_properties(${name} PROPERTIES SOURCES "${others}")
endfunction()

function(varnhold_test name)
  cmake_parse_arguments(arg "DISPLAY" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE ${arg_USES} varnhold_warnings GTest::gmock GTest::gtest_main)
  # Compiling and linking the tests is most of a build's time, and how fast they run is no matter. What behaves as the
  # language leaves undefined is looked for in the libraries; in the tests too it would double the time.
  target_compile_options(${name} PRIVATE -O0 -g1)
  if("undefined" IN_LIST sanitizers)
    target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
  endif()
  if(WIN32)
    target_link_options(${name} PRIVATE -Wl,--strip-debug)
  endif()
  if(VARNHOLD_JOIN_TESTS)
    cmake_language(EVAL CODE "cmake_language(DEFER CALL varnhold_join_tests ${name})")
  endif()
  if(TARGET test_headers AND NOT arg_DISPLAY)
    target_precompile_headers(${name} REUSE_FROM test_headers)
  endif()
  if(arg_DISPLAY)
    add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/cmake/run-under-xvfb ${CMAKE_CROSSCOMPILING_EMULATOR}
                                  $<TARGET_FILE:${name}> --gtest_shuffle --gtest_brief=1)
    # The end of one test's Wine would be the end of another's.
    if(WIN32)
      set_tests_properties(${name} PROPERTIES RESOURCE_LOCK "wine-display")
    endif()
  else()
    add_test(NAME ${name} COMMAND ${name} --gtest_shuffle --gtest_brief=1)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()

# Where tests keep the files that programs run as somebody else must reach: a checkout may lie in a private folder.
string(MD5 build_name "${CMAKE_BINARY_DIR}")
string(SUBSTRING "${build_name}" 0 8 build_name)
set(VARNHOLD_SCRATCH "/tmp/varnhold-${build_name}")

# The host's ODBC driver manager.
add_library(odbc_driver_manager INTERFACE)
target_link_libraries(odbc_driver_manager INTERFACE $<IF:$<BOOL:${WIN32}>,odbc32,odbc>)
