# SPDX-License-Identifier: Apache-2.0
# Builds for 64-bit Windows with what scripts/setup --windows made: the compilers, and the libraries
# in the cache. Test programs run under Wine.
include("${CMAKE_CURRENT_LIST_DIR}/../scripts/windows/mingw64.cmake")

# CMake reads this file again for every try_compile; one question is enough.
if(NOT CMAKE_IN_TRY_COMPILE AND NOT morrantWindowsAsked)
    set(morrantWindowsAsked ON)
    execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/../scripts/setup-windows" --where
        OUTPUT_VARIABLE prefixes OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "The libraries for Windows were not found: run scripts/setup --windows.")
    endif()
    string(REPLACE "\n" ";" prefixes "${prefixes}")
    # What was found in a build of another recipe is looked for anew.
    foreach(old IN LISTS MORRANT_WINDOWS_PREFIXES)
        if(NOT old IN_LIST prefixes)
            get_cmake_property(variables CACHE_VARIABLES)
            foreach(variable IN LISTS variables)
                string(FIND "$CACHE{${variable}}" "${old}/" position)
                if(position EQUAL 0)
                    unset(${variable} CACHE)
                endif()
            endforeach()
        endif()
    endforeach()
    set(MORRANT_WINDOWS_PREFIXES "${prefixes}" CACHE STRING
        "Install prefixes of the libraries for Windows" FORCE)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MORRANT_WINDOWS_PREFIXES)
list(APPEND CMAKE_FIND_ROOT_PATH ${MORRANT_WINDOWS_PREFIXES})

# moc, rcc and uic are the host's.
set(QT_HOST_PATH /usr)
execute_process(COMMAND g++ -print-multiarch
    OUTPUT_VARIABLE hostMultiarch OUTPUT_STRIP_TRAILING_WHITESPACE)
set(QT_HOST_PATH_CMAKE_DIR "/usr/lib/${hostMultiarch}/cmake")

# RapidJSON is headers alone, and on the host they are where every compiler looks.
foreach(prefix IN LISTS MORRANT_WINDOWS_PREFIXES)
    if(EXISTS "${prefix}/include/rapidjson")
        set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES "${prefix}/include")
    endif()
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/windows/run-under-wine")
