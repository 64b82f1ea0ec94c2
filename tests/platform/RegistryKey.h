#pragma once

#include <QString>

#include <windows.h>

namespace ui::test {

/// A key of the registry that a test fills. Whatever it holds is deleted with this object, and so
/// is what lay there before a test that was cut short.
class RegistryKey
{
public:
    enum class Lifetime
    {
        Permanent,
        Volatile, ///< takes no permanent keys below it
    };

    RegistryKey(HKEY root, const QString& path);
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    bool create(Lifetime lifetime = Lifetime::Permanent);

    /// Creates the key if need be. An empty name stands for the default value.
    bool setValue(const QString& name, const QString& value);

    /// A string value of the key or one below it; null when there is none.
    QString value(const QString& name, const QString& subkey = {}) const;

    bool exists() const;

private:
    HKEY m_root;
    QString m_path;
};

/// The key, under HKEY_LOCAL_MACHINE, that says where a class of the Windows Runtime is.
QString runtimeClassKey(const QString& className);

} // namespace ui::test
