# SPDX-License-Identifier: Apache-2.0
# The installed package: `find_package(MorrantUI)` gives a host Morrant::UI and Morrant::Core. Skia is
# part of the public interface and of no distribution, so the package carries the one that set-up
# built.
set(packageDir "${CMAKE_INSTALL_LIBDIR}/cmake/MorrantUI")

# Ours find each other and Skia beside themselves.
if(NOT WIN32)
    set(ownTargets MorrantUI)
    if(TARGET Core)
        list(APPEND ownTargets Core)
    endif()
    set_target_properties(${ownTargets} PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/../lib")
endif()

set(exported MorrantUI)
if(TARGET Core)
    list(APPEND exported Core)
    set(MORRANT_OWN_CORE ON)
else()
    set(MORRANT_OWN_CORE OFF)
endif()
install(TARGETS ${exported} EXPORT MorrantUITargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT headers
    FILE_SET generated DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT headers)
install(EXPORT MorrantUITargets NAMESPACE Morrant:: DESTINATION "${packageDir}")
if(MORRANT_BUNDLE_SKIA)
    install(DIRECTORY "${MORRANT_SKIA_PREFIX}/" DESTINATION . USE_SOURCE_PERMISSIONS)
endif()

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/MorrantUIConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/MorrantUIConfig.cmake" INSTALL_DESTINATION "${packageDir}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/MorrantUIConfigVersion.cmake.in"
    "${PROJECT_BINARY_DIR}/MorrantUIConfigVersion.cmake" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/MorrantUIConfig.cmake"
    "${PROJECT_BINARY_DIR}/MorrantUIConfigVersion.cmake" DESTINATION "${packageDir}")

# For hosts that are not built by CMake; the package may be moved as a whole.
file(RELATIVE_PATH morrantPcPrefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" morrantPcPrefix "${morrantPcPrefix}")
if(MORRANT_OWN_CORE)
    set(morrantPcCore "-lCore")
else()
    set(morrantPcCore "")
endif()
get_target_property(morrantPcDefinitions Skia::Skia INTERFACE_COMPILE_DEFINITIONS)
list(TRANSFORM morrantPcDefinitions PREPEND "-D")
list(JOIN morrantPcDefinitions " " morrantPcDefinitions)
configure_file("${CMAKE_CURRENT_LIST_DIR}/morrant-ui.pc.in" "${PROJECT_BINARY_DIR}/morrant-ui.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/morrant-ui.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# What translators start from, see MorrantUI_TRANSLATIONS_DIR.
install(FILES "${PROJECT_SOURCE_DIR}/translations/morrantui.ts"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/morrant-ui/translations")

install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" "${PROJECT_SOURCE_DIR}/THIRD-PARTY-NOTICES.md"
    DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/LICENSES" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
