# Compiler flags of every target, carried by one INTERFACE library.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

option(ALTOVERDE_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ALTOVERDE_BENCH "Build the benchmarks" OFF)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_C_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_C_COMPILER_LAUNCHER})
endif()

add_library(opciones INTERFACE)
if(MSVC)
  target_compile_options(opciones INTERFACE /W4 /WX /utf-8 /permissive-)
else()
  target_compile_options(opciones INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wconversion -Wsign-conversion -Wimplicit-fallthrough -Werror)
  if(CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(opciones INTERFACE -fpch-preprocess)
  endif()
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(opciones INTERFACE -Wno-subobject-linkage) # it takes the files of one unit for headers
  endif()
endif()
target_compile_definitions(opciones INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
if(ALTOVERDE_SANITIZE)
  target_compile_options(opciones INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(opciones INTERFACE -fsanitize=address,undefined)
endif()
