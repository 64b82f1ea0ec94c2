# SPDX-License-Identifier: Apache-2.0
# Stands for the Core of an application: the same headers, another library.
add_library(Morrant::Core INTERFACE IMPORTED)
set_target_properties(Morrant::Core PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${CMAKE_CURRENT_LIST_DIR}/../../../src")
