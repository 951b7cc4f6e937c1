# Compiler settings shared by every target, and the helpers that define the targets.
include(CTest)
option(BLOCKATTR_SANITIZE "Build with address and undefined-behaviour sanitizers, ready for random input; needs clang" OFF)
option(BLOCKATTR_BENCH "Build the benchmark programs" ON)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")
# One folder holds everything that runs, so that libraries are found by name beside the program.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
if(WIN32)
  include(Windows)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
                    -Werror -fvisibility-inlines-hidden)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # gcc 12 sees uninitialised members in every moved std::variant; the sanitizers look for the real ones.
  add_compile_options(-Wno-maybe-uninitialized)
  if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # It also sees copies out of bounds where short std::strings are joined (gcc bugs 105329 and 105651), depending on
    # nothing but the length of the folder's name.
    add_compile_options(-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread)
  endif()
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # The text of messages is data from the string table, so their formats are never literals.
  add_compile_options(-Wno-format-nonliteral)
endif()
if(BLOCKATTR_SANITIZE)
  # One build serves the tests and random input, which needs the code to count where it comes by.
  set(sanitizers address,undefined,fuzzer-no-link)
  add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer -O2 -g1)
  add_link_options(-fsanitize=${sanitizers})
endif()

# hb_exports(PROGRAM): a program that exports its functions, for modules that ask it for them.
function(hb_exports program)
  set_target_properties(${program} PROPERTIES ENABLE_EXPORTS ON)
  if(WIN32)
    target_link_options(${program} PRIVATE -Wl,--export-all-symbols)
  endif()
endfunction()

# hb_precompile_drawing(TARGET HEADERS...): reads what nearly every source that works on drawings includes only once, and
# these headers with it. Sources include what they use all the same; clang-tidy reads them without.
function(hb_precompile_drawing target)
  target_precompile_headers(${target} PRIVATE ${ARGN} <algorithm> <functional> <memory> <string> <vector>
                            <DbBlockReference.h> <DbDatabase.h>)
endfunction()

# What test programs need of one system only stands in a folder of its name.
if(WIN32)
  set(test_system windows)
else()
  set(test_system posix)
endif()

# hb_test(NAME LIBRARIES...): one test program from every *_test.cpp of the calling folder. Sources are found by
# the build itself, so that a test file cannot be left out.
function(hb_test name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp ${test_system}/*.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gmock_main)
  # The headers that the first program precompiles serve all.
  if(name STREQUAL ge_test)
    hb_precompile_drawing(ge_test <gmock/gmock.h>)
  else()
    target_precompile_headers(${name} REUSE_FROM ge_test)
  endif()
  # What the tests themselves do is little, and most of the time would be the compiler's.
  target_compile_options(${name} PRIVATE -O0)
  if(BLOCKATTR_SANITIZE)
    # Only what they test is to be looked at for undefined behaviour: checks of their own take a quarter of the compiler's time.
    target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
    # Tests that count memory ask for it: the address sanitizer keeps what was freed.
    target_compile_definitions(${name} PRIVATE BLOCKATTR_SANITIZED)
  endif()
  if(WIN32)
    # A process costs most of a second under Wine, so each program is one test.
    hb_utf8_program(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT GTEST_BRIEF=1)
  else()
    # The leaks of others are listed there.
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300
      ENVIRONMENT "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0")
  endif()
endfunction()
