# SPDX-License-Identifier: Apache-2.0
# The asset folder that a host ships: style files, icons rendered from SVG at 1x and 2x, and fonts.
# After this file MORRANT_ASSETS_DIR names the folder and the target `assets` fills it.

set(MORRANT_ASSETS_DIR "${PROJECT_BINARY_DIR}/assets")
set(MORRANT_FONT_DIR "" CACHE PATH "Folder with the theme's Inter-*.otf font files")

find_program(RSVG_CONVERT rsvg-convert)
if(NOT RSVG_CONVERT)
    message(FATAL_ERROR "The icons need rsvg-convert (Debian package librsvg2-bin).")
endif()

set(morrantFonts Inter-Regular.otf Inter-Medium.otf Inter-SemiBold.otf Inter-Italic.otf)
find_path(MORRANT_INTER_DIR Inter-Regular.otf NO_CMAKE_FIND_ROOT_PATH NO_CACHE
    HINTS "${MORRANT_FONT_DIR}"
    PATHS
        /usr/share/fonts/opentype/inter
        /usr/share/fonts/truetype/inter
        /usr/share/fonts/inter
        /usr/local/share/fonts
        "$ENV{HOME}/.local/share/fonts")
if(NOT MORRANT_INTER_DIR)
    message(FATAL_ERROR
        "The theme's font was not found: install Inter (Debian package fonts-inter) or set MORRANT_FONT_DIR.")
endif()
list(TRANSFORM morrantFonts PREPEND "${MORRANT_INTER_DIR}/" OUTPUT_VARIABLE morrantFontFiles)
foreach(font IN LISTS morrantFontFiles)
    if(NOT EXISTS "${font}")
        message(FATAL_ERROR "The theme's font is incomplete, ${font} is missing.")
    endif()
endforeach()

file(GLOB_RECURSE morrantAssetFiles CONFIGURE_DEPENDS
    RELATIVE "${PROJECT_SOURCE_DIR}/assets" "${PROJECT_SOURCE_DIR}/assets/*")
list(TRANSFORM morrantAssetFiles PREPEND "${PROJECT_SOURCE_DIR}/assets/" OUTPUT_VARIABLE morrantAssetSources)

# One command renders every icon: a step per icon costs more than the rendering.
add_custom_command(
    OUTPUT "${MORRANT_ASSETS_DIR}/.complete"
    COMMAND "${CMAKE_COMMAND}"
        "-DSOURCE_DIR=${PROJECT_SOURCE_DIR}/assets"
        "-DTARGET_DIR=${MORRANT_ASSETS_DIR}"
        "-DRSVG_CONVERT=${RSVG_CONVERT}"
        "-DFONTS=${morrantFontFiles}"
        -P "${CMAKE_CURRENT_LIST_DIR}/MorrantBuildAssets.cmake"
    DEPENDS ${morrantAssetSources} ${morrantFontFiles}
        "${CMAKE_CURRENT_LIST_DIR}/MorrantBuildAssets.cmake"
    COMMENT "Building the assets"
    VERBATIM)
add_custom_target(assets ALL DEPENDS "${MORRANT_ASSETS_DIR}/.complete")

install(DIRECTORY "${MORRANT_ASSETS_DIR}/" DESTINATION "${CMAKE_INSTALL_DATADIR}/morrant-ui/assets"
    PATTERN ".complete" EXCLUDE)
