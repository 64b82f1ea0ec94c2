// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/systemlibrary.h"

namespace morrant::native {

void* findSystemFunction(const wchar_t* library, const char* function)
{
    const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module ? reinterpret_cast<void*>(GetProcAddress(module, function)) : nullptr;
}

bool isWindows10OrLater()
{
    using RtlGetVersion = LONG WINAPI(OSVERSIONINFOW*);
    // The kernel's own library is part of every process.
    const HMODULE kernel = GetModuleHandleW(L"ntdll.dll");
    const auto rtlGetVersion = reinterpret_cast<RtlGetVersion*>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "RtlGetVersion")));
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    constexpr DWORD kWindows10 = 10;
    return rtlGetVersion && rtlGetVersion(&version) >= 0 && version.dwMajorVersion >= kWindows10;
}

} // namespace morrant::native
