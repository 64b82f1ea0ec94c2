# SPDX-License-Identifier: Apache-2.0
# clang for 64-bit Windows, on the headers and libraries of the GCC in mingw64.cmake: what it builds
# links with what that GCC builds. For Skia, whose pipeline is vectorised only under clang.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET ${MINGW_TRIPLE})
set(CMAKE_RC_COMPILER ${MINGW_TRIPLE}-windres)
foreach(tool IN ITEMS AR RANLIB STRIP DLLTOOL)
    string(TOLOWER ${tool} name)
    set(CMAKE_${tool} /usr/bin/${MINGW_TRIPLE}-${name})
endforeach()

# clang by itself takes the other thread model's folder, or none.
execute_process(COMMAND ${MINGW_TRIPLE}-g++-posix -print-libgcc-file-name
    OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc "${libgcc}" DIRECTORY)
set(CMAKE_CXX_FLAGS_INIT
    "-nostdinc++ -isystem ${gcc}/include/c++ -isystem ${gcc}/include/c++/${MINGW_TRIPLE}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-B${gcc} -L${gcc}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-B${gcc} -L${gcc}")
set(CMAKE_CXX_STANDARD_LIBRARIES "-lpthread" CACHE STRING "")

list(APPEND CMAKE_FIND_ROOT_PATH /usr/${MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
