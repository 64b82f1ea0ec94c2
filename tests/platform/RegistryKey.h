// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <windows.h>

namespace ui::test {

/// A key of the registry that a test fills. Whatever it holds is deleted with this object, and so
/// is what lay there before a test that was cut short.
class RegistryKey
{
public:
    RegistryKey(HKEY root, const QString& path)
        : m_root(root)
        , m_path(path)
    {
        RegDeleteTreeW(m_root, wide(m_path));
    }
    ~RegistryKey() { RegDeleteTreeW(m_root, wide(m_path)); }
    Q_DISABLE_COPY_MOVE(RegistryKey)

    /// @param options REG_OPTION_VOLATILE makes a key that takes no permanent ones below it
    bool create(DWORD options = REG_OPTION_NON_VOLATILE)
    {
        HKEY key = nullptr;
        const bool isThere =
            RegCreateKeyExW(
                m_root, wide(m_path), 0, nullptr, options, KEY_READ, nullptr, &key, nullptr)
            == ERROR_SUCCESS;
        RegCloseKey(key);
        return isThere;
    }

    /// Creates the key if need be. An empty name stands for the default value.
    bool setValue(const QString& name, const QString& value)
    {
        const auto bytes = static_cast<DWORD>((value.size() + 1) * qsizetype(sizeof(wchar_t)));
        return RegSetKeyValueW(m_root, wide(m_path), wide(name), REG_SZ, wide(value), bytes)
               == ERROR_SUCCESS;
    }

    /// The default value of a key below this one; null when there is none.
    QString value(const QString& subkey) const
    {
        wchar_t text[1024] = {};
        DWORD bytes = sizeof(text);
        const LSTATUS status = RegGetValueW(
            m_root, wide(m_path + u'\\' + subkey), L"", RRF_RT_REG_SZ, nullptr, text, &bytes);
        return status == ERROR_SUCCESS ? QString::fromWCharArray(text) : QString();
    }

private:
    static const wchar_t* wide(const QString& text)
    {
        return reinterpret_cast<const wchar_t*>(text.utf16());
    }

    HKEY m_root;
    QString m_path;
};

/// The key, under HKEY_LOCAL_MACHINE, that says where a class of the Windows Runtime is.
inline QString runtimeClassKey(const QString& className)
{
    return u"Software\\Microsoft\\WindowsRuntime\\ActivatableClassId\\"_qs + className;
}

/// The key, under either root, of a class of COM.
inline QString comClassKey(const wchar_t* classId)
{
    return u"Software\\Classes\\CLSID\\"_qs + QString::fromWCharArray(classId);
}

} // namespace ui::test
