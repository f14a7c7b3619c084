// The application folder of one test, with its settings.
#pragma once

#include <QString>
#include <QTemporaryDir>

namespace orvanta::e2e {

class Home
{
public:
    enum Kind
    {
        Installed, // the shipped settings, English chosen
        Empty,     // as before the very first start
    };

    explicit Home(Kind kind = Installed);

    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString settingsFile() const;
    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }

    void set(const QString& section, const QString& key, const QString& value) const;
    [[nodiscard]] QString get(const QString& section, const QString& key) const;
    /// Sets an option of section "options".
    void setOption(const QString& key, bool on) const;
    /// Takes every line of a key out of the settings.
    void remove(const QString& key) const;

private:
    QTemporaryDir m_folder;
};

} // namespace orvanta::e2e
