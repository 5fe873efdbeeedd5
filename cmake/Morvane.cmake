# What every target of Morvane shares: language level, warnings, output folders, caches, and the
# two ways to declare a target. A target sees only the include paths of the layers it links.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

option(MORVANE_PCH "Precompile the Qt headers; off in dev so that a missing include shows" OFF)
set(MORVANE_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize takes them")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND MORVANE_PCH)
  # A precompiled header holds the paths of its checkout: what is cached serves this one alone.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
      "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime" "${CCACHE_PROGRAM}")
  add_compile_options(-fpch-preprocess)
elseif(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
      "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Werror)
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
  add_compile_options(-O0 -g1)
endif()
if(MORVANE_SANITIZE)
  # Qt compares empty lists by memcmp of two null pointers and no bytes.
  add_compile_options(-fsanitize=${MORVANE_SANITIZE} -fno-sanitize=nonnull-attribute -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${MORVANE_SANITIZE})
endif()

# Lists the sources and headers of FOLDERS, below the current one. New files are found at the next build.
function(morvane_sources out)
  set(found)
  foreach(folder IN LISTS ARGN)
    file(GLOB here CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/*.h" "${folder}/*.qrc")
    list(APPEND found ${here})
  endforeach()
  set(${out} ${found} PARENT_SCOPE)
endfunction()

function(morvane_precompile target)
  if(MORVANE_PCH)
    target_precompile_headers(${target} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/precompiled.h")
  endif()
endfunction()

# morvane_library(NAME kind FOLDERS f... LIBS l...): kind is SHARED, STATIC or MODULE. The include root is the
# folder of the layer, so that "model/MrvInterfaces.h" names a file of plugin/model.
function(morvane_library name kind)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LIBS" ${ARGN})
  morvane_sources(sources ${ARG_FOLDERS})
  add_library(${name} ${kind} ${sources})
  target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LIBS})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  morvane_precompile(${name})
endfunction()

# morvane_tests(NAME FOLDERS f... LIBS l...): one executable; every GoogleTest case is a ctest test.
function(morvane_tests name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LIBS" ${ARGN})
  morvane_sources(sources ${ARG_FOLDERS})
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} morvane_test_support)
  target_compile_options(${name} PRIVATE -O0)
  morvane_precompile(${name})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
include(GoogleTest)
