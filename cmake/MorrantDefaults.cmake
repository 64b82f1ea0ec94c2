# SPDX-License-Identifier: Apache-2.0
# What holds for every target of our own and for none of a host's.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
if(WIN32)
    # Windows finds a program's libraries beside it.
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
else()
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
endif()
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

# clang-tidy lints moc's output too unless a nearer, empty configuration says otherwise.
file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")

# Warnings, language rules and sanitizers of one of our targets.
function(morrant_defaults target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8
            $<$<BOOL:${MORRANT_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
            -Wold-style-cast -Wunused
            $<$<BOOL:${MORRANT_WARNINGS_AS_ERRORS}>:-Werror>)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
    if(MORRANT_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${MORRANT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${MORRANT_SANITIZE})
    endif()
    if(MORRANT_BUILD_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# Keeps what the compiler instantiates of other libraries' templates out of a library's symbol table.
# The sanitizers want to see all of it, and a DLL exports nothing that is not marked.
function(morrant_hide_foreign_symbols target)
    if(NOT WIN32 AND NOT MORRANT_SANITIZE)
        set(map "${PROJECT_SOURCE_DIR}/cmake/exports.map")
        target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
    endif()
endfunction()

# Precompiles Qt's headers for a target: they are most of what a source file reads.
function(morrant_precompile_qt target)
    target_precompile_headers(${target} PRIVATE <QtWidgets>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Time stamps inside precompiled headers keep ccache from ever hitting.
        target_compile_options(${target} PRIVATE
            "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()
