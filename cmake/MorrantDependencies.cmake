# SPDX-License-Identifier: Apache-2.0
# The libraries that MorrantUI stands on. scripts/setup installs or builds each of them.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets)
find_package(fmt 9 REQUIRED)
find_package(spdlog 1.10 REQUIRED)

# Skia: a package named by SKIA_ROOT, else one the system has, else the one that scripts/setup built
# into the cache.
set(SKIA_ROOT "$ENV{SKIA_ROOT}" CACHE PATH "Install prefix of Skia")
if(SKIA_ROOT AND Skia_DIR)
    cmake_path(IS_PREFIX SKIA_ROOT "${Skia_DIR}" NORMALIZE sameSkia)
    if(NOT sameSkia)
        unset(Skia_DIR CACHE) # found by an earlier run, with another root
    endif()
endif()
find_package(Skia 120 CONFIG QUIET HINTS "${SKIA_ROOT}")
if(NOT Skia_FOUND AND NOT CMAKE_CROSSCOMPILING)
    execute_process(COMMAND "${PROJECT_SOURCE_DIR}/scripts/setup-skia" --where
        OUTPUT_VARIABLE cachedSkia OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    find_package(Skia 120 CONFIG QUIET HINTS "${cachedSkia}")
endif()
if(NOT Skia_FOUND)
    message(FATAL_ERROR "Skia was not found: run scripts/setup, or set SKIA_ROOT.")
endif()
get_filename_component(MORRANT_SKIA_PREFIX "${Skia_DIR}/../../.." ABSOLUTE)
message(STATUS "Skia ${Skia_VERSION}: ${MORRANT_SKIA_PREFIX}")
# A prefix of our own set-up holds Skia and nothing else, and so can go into the package.
string(REGEX MATCH "/skia-[0-9.]+-[0-9a-f]+$" ownSkia "${MORRANT_SKIA_PREFIX}")
if(ownSkia)
    set(MORRANT_BUNDLE_SKIA ON)
else()
    set(MORRANT_BUNDLE_SKIA OFF)
endif()

# An application with a Core of its own builds the library against that.
find_package(Core CONFIG QUIET)

# muParser: its own package on Windows builds, pkg-config's or plain files on Debian.
find_package(muparser CONFIG QUIET)
if(NOT TARGET muparser::muparser)
    find_library(MUPARSER_LIBRARY muparser REQUIRED)
    find_path(MUPARSER_INCLUDE_DIR muParser.h REQUIRED)
    add_library(muparser::muparser UNKNOWN IMPORTED)
    set_target_properties(muparser::muparser PROPERTIES
        IMPORTED_LOCATION "${MUPARSER_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${MUPARSER_INCLUDE_DIR}")
endif()
