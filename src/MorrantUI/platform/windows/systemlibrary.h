// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <windows.h>

namespace morrant::native {

/// A function of a system library that not every Windows has, or null. The library is loaded from
/// the system's own folder and stays loaded.
void* findSystemFunction(const wchar_t* library, const char* function);

/// The same with the function's type.
template <typename Function>
Function* systemFunction(const wchar_t* library, const char* function)
{
    return reinterpret_cast<Function*>(findSystemFunction(library, function));
}

/// Whether the kernel is that of Windows 10 or later, whatever version the program's manifest makes
/// the system claim.
bool isWindows10OrLater();

} // namespace morrant::native
