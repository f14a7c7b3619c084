// The project's sources as text, for the tests that read them.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta::test {

/// One #include line.
struct Include
{
    QString name;          // what stands between the marks
    bool isQuoted = false; // "name" of the project; else <name> of a library
};

/// Headers and sources of the whole project, as paths below its root.
[[nodiscard]] QStringList projectSources();

/// The #include lines of a text, in order.
[[nodiscard]] QList<Include> includesOf(const QString& text);

/// Raises a test failure (and gives the empty text) when the file cannot be read.
[[nodiscard]] QString textOfSource(const QString& path);

} // namespace orvanta::test
