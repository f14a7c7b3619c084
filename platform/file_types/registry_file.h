// registry.ini: keys as sections, values as lines.
#pragma once

#include "core/ini.h"

#include <QHash>
#include <QString>

namespace orvanta {

/// Changes stay in memory until save(). An absent value reads as the empty text.
class RegistryFile
{
public:
    explicit RegistryFile(QString file);

    /// An empty name is the section's default value.
    [[nodiscard]] QString read(const QString& section, const QString& name) const;
    void write(const QString& section, const QString& name, const QString& value);
    /// In one replacement of the file. What cannot be written is lost and logged.
    void save();

private:
    QString m_file;
    QHash<QString, IniChange> m_changes; // by section and key, without case
};

} // namespace orvanta
