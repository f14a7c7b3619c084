// The documents of a box: those of the lesson with other paths, and the READ ME.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace orvanta {

/// Values by section and key, both in lower case.
using NewValues = QHash<std::pair<QString, QString>, QString>;

/// The document with these values and everything else as it was, lines that mean nothing to the
/// program included. Plain ASCII stays that; whatever has other letters becomes UTF-16 with a mark,
/// the one form that every reader of the format understands whatever its code page is. original:
/// bytes of a file, by this user's code page when they are not Unicode.
[[nodiscard]] QByteArray rewrittenDocument(const QByteArray& original, const NewValues& values);

/// A new group. Each member: path, text, picture (may be empty).
struct NewMember
{
    QString path;
    QString text;
    QString picture;
};
[[nodiscard]] QByteArray newGroup(const std::vector<NewMember>& members);

/// A name of the box as documents write it: "media\clip.mp4". Both kinds of systems read that.
[[nodiscard]] QString asPathText(const QString& nameInBox);

/// What the lesson is and how it is played, in both languages. missing: what should be there and
/// is not. opensInBrowsers: there is a page, too.
[[nodiscard]] QByteArray readMe(const QString& title, const QString& group,
                                const QStringList& missing, bool opensInBrowsers);

} // namespace orvanta
