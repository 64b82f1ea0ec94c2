#include "RegistryKey.h"

#include <string>

namespace ui::test {

static const wchar_t* wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

RegistryKey::RegistryKey(HKEY root, const QString& path)
    : m_root(root)
    , m_path(path)
{
    RegDeleteTreeW(m_root, wide(m_path));
}

RegistryKey::~RegistryKey()
{
    RegDeleteTreeW(m_root, wide(m_path));
}

bool RegistryKey::create(Lifetime lifetime)
{
    HKEY key = nullptr;
    const DWORD options =
        lifetime == Lifetime::Volatile ? REG_OPTION_VOLATILE : REG_OPTION_NON_VOLATILE;
    const LSTATUS status = RegCreateKeyExW(
        m_root, wide(m_path), 0, nullptr, options, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (status == ERROR_SUCCESS) {
        RegCloseKey(key);
    }
    return status == ERROR_SUCCESS;
}

bool RegistryKey::setValue(const QString& name, const QString& value)
{
    const auto bytes = static_cast<DWORD>((value.size() + 1) * qsizetype(sizeof(wchar_t)));
    return create()
           && RegSetKeyValueW(m_root, wide(m_path), wide(name), REG_SZ, wide(value), bytes)
                  == ERROR_SUCCESS;
}

QString RegistryKey::value(const QString& name, const QString& subkey) const
{
    const QString path = subkey.isEmpty() ? m_path : m_path + u'\\' + subkey;
    std::wstring text(1024, L'\0');
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    const LSTATUS status =
        RegGetValueW(m_root, wide(path), wide(name), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    return status == ERROR_SUCCESS ? QString::fromWCharArray(text.c_str()) : QString();
}

bool RegistryKey::exists() const
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(m_root, wide(m_path), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

QString runtimeClassKey(const QString& className)
{
    return QStringLiteral("Software\\Microsoft\\WindowsRuntime\\ActivatableClassId\\") + className;
}

} // namespace ui::test
