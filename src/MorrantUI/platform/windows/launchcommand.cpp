// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windows/launchcommand.h"

#include <windows.h>

namespace morrant::native {

std::wstring programPath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), size);
        if (length < size) {
            path.resize(length); // 0 on failure
            return path;
        }
        path.resize(path.size() * 2); // it was cut to fit
    }
}

bool writeLaunchCommand(const wchar_t* classId)
{
    const std::wstring program = programPath();
    if (program.empty()) {
        return false;
    }
    const std::wstring key =
        std::wstring(L"SOFTWARE\\Classes\\CLSID\\") + classId + L"\\LocalServer32";
    // Without the quotation marks a space in the path ends it; without the space before the switch
    // that is taken for a part of the path.
    const std::wstring command = L'"' + program + L"\" -ToastActivated";
    const auto bytes = static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t));

    HKEY server = nullptr;
    if (RegCreateKeyExW(
            HKEY_CURRENT_USER,
            key.c_str(),
            0,
            nullptr,
            REG_OPTION_NON_VOLATILE,
            KEY_SET_VALUE,
            nullptr,
            &server,
            nullptr)
        != ERROR_SUCCESS)
    {
        return false;
    }
    const LSTATUS written = RegSetValueExW(
        server, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(command.c_str()), bytes);
    RegCloseKey(server);
    return written == ERROR_SUCCESS;
}

} // namespace morrant::native
