// The registry procedures. What means nothing to this desktop is kept in registry.ini.
#pragma once

#include <QString>

namespace orvanta {

enum class RegistryHive
{
    ClassesRoot,
    LocalMachine,
};

/// Subkeys are joined with "\". An empty value name is the key's default value. None of these
/// raises; failures are logged.
class Registry
{
public:
    explicit Registry(const QString& applicationFolder);

    [[nodiscard]] QString RegReadString(RegistryHive hive, const QString& subkey,
                                        const QString& valueName) const;
    void RegWriteString(RegistryHive hive, const QString& subkey, const QString& valueName,
                        const QString& value);
    void RegDeleteValue(RegistryHive hive, const QString& subkey, const QString& valueName);

private:
    QString m_file; // registry.ini
};

/// Whether the path (one trailing separator dropped) can be opened for reading.
[[nodiscard]] bool FileExists(const QString& path);

} // namespace orvanta
