# SPDX-License-Identifier: Apache-2.0
# The pictures of the application style; private to the library.
set(morrantStyleParts
    buttons.cpp
    dispatch.cpp dispatch.h
    elements.h
    fields.cpp
    frames.cpp
    menus.cpp
    metrics.cpp metrics.h
    pixelgrid.cpp pixelgrid.h
    ranges.cpp
    shades.cpp shades.h
    shapes.cpp shapes.h
    sharpicons.cpp sharpicons.h
    standardicons.cpp standardicons.h
    tabs.cpp
    views.cpp)
list(TRANSFORM morrantStyleParts PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
target_sources(MorrantUI PRIVATE ${morrantStyleParts})
