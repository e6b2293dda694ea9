# What all targets share, and the functions that make a target out of a folder.
include(CTest)
include(GoogleTest)

option(HYG_BENCHMARKS "Build the benchmarks" OFF)
option(HYG_TIDY "Run clang-tidy with the compiler" OFF)
option(HYG_FUZZ "Build the fuzz targets (clang only)" OFF)
set(HYG_SANITIZE "" CACHE STRING "Sanitizers, for example address,undefined")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

find_package(Threads REQUIRED)
find_package(OpenMP REQUIRED COMPONENTS CXX)

find_program(HYG_CCACHE ccache)
if(HYG_CCACHE)
  # Precompiled headers carry time stamps; without this ccache refuses every file that uses one.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime;CCACHE_PCH_EXTSUM=1;${HYG_CCACHE}")
endif()

if(HYG_TIDY)
  find_program(HYG_CLANG_TIDY NAMES clang-tidy-14 clang-tidy REQUIRED)
endif()

add_library(hyg_options INTERFACE)
target_compile_options(hyg_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
  # g++ 12 reports impossible overlaps and sizes inside the standard library when it optimises (GCC bugs 105329, 105651).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread;-Wno-array-bounds>)
if(HYG_SANITIZE)
  target_compile_options(hyg_options INTERFACE -fsanitize=${HYG_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  target_link_options(hyg_options INTERFACE -fsanitize=${HYG_SANITIZE})
  target_sources(hyg_options INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${CMAKE_CURRENT_LIST_DIR}/SanitizerDefaults.cpp>)
endif()

set(HYG_PCH <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view>
            <utility> <vector>)

# hyg_precompile(<target> <header>...): headers that every source of a target sees, precompiled or, where that is switched
# off, included as if they were.
function(hyg_precompile target)
  if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    return()
  endif()
  foreach(header ${ARGN})
    string(REGEX REPLACE "[<>]" "" header ${header})
    target_compile_options(${target} PRIVATE "SHELL:-include ${header}")
  endforeach()
endfunction()

# hyg_tests(<name> DEPENDS <target>... [QT]): one test program out of tests/.
# GoogleTest programs are split into their cases; a Qt program runs offscreen, one entry a source file.
function(hyg_tests name)
  cmake_parse_arguments(ARG "QT" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS tests/*.cpp tests/*.h)
  if(NOT sources OR NOT BUILD_TESTING)
    return()
  endif()
  find_package(GTest REQUIRED)
  add_executable(test_${name} ${sources})
  target_link_libraries(test_${name} PRIVATE ${ARG_DEPENDS} hyg_options GTest::gmock)
  target_compile_definitions(test_${name} PRIVATE HYG_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/tests/data"
    HYG_SOURCE_DIR="${CMAKE_SOURCE_DIR}" HYG_BINARY_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  hyg_precompile(test_${name} ${HYG_PCH} <gmock/gmock.h> <gtest/gtest.h>)
  if(ARG_QT)
    find_package(Qt5 5.15 REQUIRED COMPONENTS Test)
    set_target_properties(test_${name} PROPERTIES AUTOMOC ON AUTOMOC_COMPILER_PREDEFINES OFF)
    target_link_libraries(test_${name} PRIVATE Qt5::Test GTest::gtest)
    gtest_discover_tests(test_${name} NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
      PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300)
  else()
    target_link_libraries(test_${name} PRIVATE GTest::gtest_main)
    gtest_discover_tests(test_${name} NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT 300)
  endif()
endfunction()

# hyg_benchmarks(<name> DEPENDS <target>...): one Google Benchmark program out of benchmarks/.
function(hyg_benchmarks name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS benchmarks/*.cpp)
  if(NOT sources OR NOT HYG_BENCHMARKS)
    return()
  endif()
  find_package(benchmark REQUIRED)
  add_executable(bench_${name} ${sources})
  target_link_libraries(bench_${name} PRIVATE ${ARG_DEPENDS} hyg_options benchmark::benchmark benchmark::benchmark_main)
  target_compile_definitions(bench_${name} PRIVATE HYG_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
endfunction()

# hyg_add_library(<name> [DEPENDS <target>...] [PRIVATE_DEPENDS <target>...] [QT <module>...] [NO_PCH]):
# a static library out of include/ and src/, its tests out of tests/, its benchmarks out of benchmarks/.
# Only what is named in DEPENDS is within reach of its includes, so the build keeps the floors apart.
function(hyg_add_library name)
  cmake_parse_arguments(ARG "NO_PCH" "" "DEPENDS;PRIVATE_DEPENDS;QT" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS src/*.cpp src/*.h include/*.h src/*.qrc src/*.ui)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC include PRIVATE src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS} hyg_options)
  if(NOT ARG_NO_PCH)
    hyg_precompile(${name} ${HYG_PCH})
  endif()
  hyg_tidy(${name})
  set(qt "")
  if(ARG_QT)
    set(qt QT)
    hyg_use_qt(${name} ${ARG_QT})
  endif()
  hyg_tests(${name} DEPENDS ${name} ${ARG_PRIVATE_DEPENDS} ${qt})
  hyg_benchmarks(${name} DEPENDS ${name})
endfunction()

# hyg_use_qt(<target> <module>...): links Qt and lets moc, uic and rcc see the target's sources.
function(hyg_use_qt target)
  find_package(Qt5 5.15 REQUIRED COMPONENTS ${ARGN})
  # Told that this is C++20, moc 5.15 stumbles over the concepts of the standard library.
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON AUTOMOC_COMPILER_PREDEFINES OFF)
  target_compile_definitions(${target} PUBLIC QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
  foreach(module IN LISTS ARGN)
    target_link_libraries(${target} PUBLIC Qt5::${module})
  endforeach()
endfunction()

function(hyg_tidy target)
  if(HYG_TIDY)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${HYG_CLANG_TIDY};--quiet")
  endif()
endfunction()
