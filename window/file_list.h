// The main window's hidden list of a folder's files.
#pragma once

#include "model/loaders.h"

#include <QObject>

namespace orvanta {

/// Lists the files of a folder that match a pattern like "*.avi;*.mpg". Never shown.
class FileList : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] QString pattern() const { return m_pattern; }
    void setPattern(const QString& pattern) { m_pattern = pattern; }
    [[nodiscard]] QString folder() const { return m_folder; }
    void setFolder(const QString& folder) { m_folder = folder; }

    /// Full paths in name order, as the folder is now.
    [[nodiscard]] QStringList files() const { return filesOfFolder(m_folder, m_pattern); }

private:
    QString m_pattern;
    QString m_folder;
};

} // namespace orvanta
