// Dragging files from another program onto the program's windows.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <QByteArrayList>
#include <QPoint>
#include <QStringList>

namespace orvanta::e2e {

/// The address of a file, percent-encoded as file managers do.
[[nodiscard]] QByteArray addressOf(const QString& file);
[[nodiscard]] QByteArrayList addressesOf(const QStringList& files);

/// A second program at the lower right of the screen, from which files can be dragged.
class Dragging
{
public:
    explicit Dragging(Desktop& desktop);

    /// Takes the addresses there, drags them to this place and lets go as soon as the program
    /// under the pointer says that it takes them. Returns whether it took them.
    [[nodiscard]] bool drop(const QByteArrayList& addresses, QPoint place);
    [[nodiscard]] bool dropFiles(const QStringList& files, QPoint place);
    /// The same, but lets go although nobody has said so; true when nobody took them.
    [[nodiscard]] bool isRefused(const QByteArrayList& addresses, QPoint place, QPoint before);

private:
    [[nodiscard]] bool offer(const QByteArrayList& addresses);
    void take(QPoint place);
    void rest(QPoint place);
    [[nodiscard]] bool hasSaid(const QByteArray& line);
    [[nodiscard]] bool says(const QByteArray& line);
    [[nodiscard]] bool saysOver(const QByteArray& line, QPoint place);

    Desktop& m_desktop;
    OwnedProcess m_source;
    QByteArrayList m_said;
};

} // namespace orvanta::e2e
