# What every target shares: warnings, sanitizers, and the object runtime with Foundation on top of it.

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

add_library(velura_options INTERFACE)
target_compile_options(velura_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wnon-virtual-dtor -Woverloaded-virtual)
if(VELURA_WERROR)
  target_compile_options(velura_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC's libobjc declares BOOL as unsigned char: comparing one to zero is the idiom here.
  # -Wrestrict of GCC 12 mistakes string concatenation for overlapping copies.
  target_compile_options(velura_options INTERFACE -Wno-missing-field-initializers -Wno-restrict)
endif()
if(VELURA_SANITIZE OR VELURA_FUZZ)
  # Methods are called through pointers of the type that the caller states, as everywhere on this
  # runtime; the type check of calls through pointers cannot know that.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    list(APPEND sanitizers -fno-sanitize=function,vptr)
  else()
    list(APPEND sanitizers -fno-sanitize=vptr)
  endif()
  target_compile_options(velura_options INTERFACE ${sanitizers})
  target_link_options(velura_options INTERFACE ${sanitizers})
endif()
if(VELURA_FUZZ)
  target_compile_options(velura_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# GCC's libobjc ships its headers and link library inside GCC's own folder; other compilers are told.
execute_process(COMMAND g++ -print-file-name=include OUTPUT_VARIABLE gcc_include OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND g++ -print-file-name=libobjc.so OUTPUT_VARIABLE libobjc OUTPUT_STRIP_TRAILING_WHITESPACE)
find_library(GNUSTEP_BASE gnustep-base REQUIRED)

add_library(velura_platform INTERFACE)
target_include_directories(velura_platform INTERFACE ${PROJECT_SOURCE_DIR})
target_link_libraries(velura_platform INTERFACE velura_options)
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(velura_platform INTERFACE -idirafter ${gcc_include})
endif()

# The runtime and Foundation themselves. Nothing refers to Foundation by symbol, so it must be kept.
add_library(velura_foundation INTERFACE)
target_link_libraries(velura_foundation INTERFACE velura_platform Threads::Threads)
target_link_options(velura_foundation INTERFACE -Wl,--no-as-needed)
target_link_libraries(velura_foundation INTERFACE ${GNUSTEP_BASE} ${libobjc} ${CMAKE_DL_LIBS})

# What nearly every file includes is compiled once for all targets of one root, which share their flags.
function(velura_precompile target root)
  get_property(first GLOBAL PROPERTY velura_precompiled_${root})
  if(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
  else()
    set_property(GLOBAL PROPERTY velura_precompiled_${root} ${target})
    target_precompile_headers(${target} PRIVATE <algorithm> <string> <vector> ${ARGN}
      ${PROJECT_SOURCE_DIR}/cocoa/AppKit.h ${PROJECT_SOURCE_DIR}/cocoa/ClassDefinition.h)
  endif()
endfunction()
