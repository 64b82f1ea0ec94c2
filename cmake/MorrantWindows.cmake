# SPDX-License-Identifier: Apache-2.0
# Windows finds a program's libraries beside it, so a cross build gathers there what it links to.

# What this GCC's programs need of its own libraries.
function(morrant_compiler_dlls result)
    set(dlls)
    foreach(name IN ITEMS libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
        execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${name}.dll"
            OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT IS_ABSOLUTE "${path}")
            message(FATAL_ERROR "The compiler's ${name}.dll was not found.")
        endif()
        list(APPEND dlls "${path}")
    endforeach()
    set(${result} "${dlls}" PARENT_SCOPE)
endfunction()

# morrant_gather_dlls(): copies the DLLs and plug-ins of every library in the cache into the folder of
# the programs, once and whenever a library is newer.
function(morrant_gather_dlls)
    set(folder "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    morrant_compiler_dlls(dlls)
    set(commands)
    foreach(prefix IN LISTS MORRANT_WINDOWS_PREFIXES)
        file(GLOB found "${prefix}/bin/*.dll")
        list(APPEND dlls ${found})
        foreach(kind IN ITEMS platforms imageformats)
            file(GLOB plugins "${prefix}/plugins/${kind}/*.dll")
            if(plugins)
                list(APPEND commands
                    COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}/${kind}"
                    COMMAND "${CMAKE_COMMAND}" -E copy_if_different ${plugins} "${folder}/${kind}")
            endif()
        endforeach()
    endforeach()
    set(stamp "${CMAKE_BINARY_DIR}/windows-dlls.stamp")
    add_custom_command(OUTPUT "${stamp}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
        COMMAND "${CMAKE_COMMAND}" -E copy_if_different ${dlls} "${folder}"
        ${commands}
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS ${dlls}
        COMMENT "Gathering the DLLs beside the programs"
        VERBATIM)
    add_custom_target(windows_dlls ALL DEPENDS "${stamp}")
endfunction()
