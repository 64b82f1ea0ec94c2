# SPDX-License-Identifier: Apache-2.0
# Fills TARGET_DIR from SOURCE_DIR: cmake -DSOURCE_DIR= -DTARGET_DIR= -DRSVG_CONVERT= -DFONTS= -P
# Only what is older than its source is made again, and what has lost its source is removed.

function(render svg png width height)
    if(NOT "${svg}" IS_NEWER_THAN "${png}")
        return()
    endif()
    execute_process(
        COMMAND "${RSVG_CONVERT}" -w ${width} -h ${height} -o "${png}" "${svg}"
        RESULT_VARIABLE result ERROR_VARIABLE error)
    if(NOT result EQUAL 0)
        file(REMOVE "${png}")
        message(FATAL_ERROR "${svg} could not be rendered: ${error}")
    endif()
endfunction()

# An icon's own width and height are its size at 1x.
function(render_icon name)
    set(svg "${SOURCE_DIR}/Icons/${name}.svg")
    file(READ "${svg}" text LIMIT 400)
    if(NOT text MATCHES " width=\"([0-9]+)\" height=\"([0-9]+)\"")
        message(FATAL_ERROR "${svg} does not state its width and height.")
    endif()
    set(width ${CMAKE_MATCH_1})
    set(height ${CMAKE_MATCH_2})
    math(EXPR doubleWidth "2 * ${width}")
    math(EXPR doubleHeight "2 * ${height}")
    get_filename_component(folder "${TARGET_DIR}/Icons/${name}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    render("${svg}" "${TARGET_DIR}/Icons/${name}.png" ${width} ${height})
    render("${svg}" "${TARGET_DIR}/Icons/${name}@2x.png" ${doubleWidth} ${doubleHeight})
endfunction()

file(GLOB_RECURSE svgs RELATIVE "${SOURCE_DIR}/Icons" "${SOURCE_DIR}/Icons/*.svg")
file(GLOB_RECURSE stale RELATIVE "${TARGET_DIR}/Icons" "${TARGET_DIR}/Icons/*.png")
foreach(svg IN LISTS svgs)
    string(REGEX REPLACE "\\.svg$" "" name "${svg}")
    render_icon("${name}")
    list(REMOVE_ITEM stale "${name}.png" "${name}@2x.png")
endforeach()
list(TRANSFORM stale PREPEND "${TARGET_DIR}/Icons/")
if(stale)
    file(REMOVE ${stale})
endif()

foreach(folder IN ITEMS Style Learn)
    file(COPY "${SOURCE_DIR}/${folder}" DESTINATION "${TARGET_DIR}")
endforeach()
file(MAKE_DIRECTORY "${TARGET_DIR}/Textures" "${TARGET_DIR}/Fonts")
file(COPY ${FONTS} DESTINATION "${TARGET_DIR}/Fonts")
file(WRITE "${TARGET_DIR}/.complete" "")
