// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/core_export.h>

#include <string>
#include <string_view>

/// UTF-8 as the system's wide characters: UTF-16 on Windows, UTF-32 where wchar_t is that wide.
///
/// Never fails: each ill-formed sequence (overlong, surrogate, beyond U+10FFFF, cut short) becomes
/// one U+FFFD. Zero bytes are characters like any other.
MORRANT_CORE_EXPORT std::wstring to_native(std::string_view utf8);
