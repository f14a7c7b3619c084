// Which registry entries a file type, the start with the system and their undoing are made of.
#pragma once

#include "platform/file_types/registry.h"

#include <QString>

namespace orvanta {

/// F: the application folder as it is, without a separator at its end but for a root. e: an
/// extension without its dot, in the case in which it was typed. None of these raises.
class FileTypeRegistration
{
public:
    FileTypeRegistration(Registry& registry, QString applicationFolder);

    /// "vxavifile" for avi.
    [[nodiscard]] static QString typeName(const QString& extension);

    /// The default value of ".e".
    [[nodiscard]] QString owner(const QString& extension) const;

    void registerType(const QString& extension);
    /// Hands the extension back to this owner; empty: to nobody. Name, icon and command stay.
    void unregisterType(const QString& extension, const QString& savedOwner);
    void writeTypeIcon(const QString& extension);
    void setAutorun(bool on);

private:
    void writeDefault(const QString& key, const QString& value);

    Registry& m_registry;
    QString m_folder;
};

} // namespace orvanta
