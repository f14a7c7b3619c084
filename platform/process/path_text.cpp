#include "platform/process/path_text.h"

#include "core/ini_encoding.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

bool hasDriveLetter(const QString& pathText)
{
    return pathText.size() > 2 && pathText[0].isLetter() && pathText[1] == u':' &&
           (pathText[2] == u'\\' || pathText[2] == u'/');
}

/// "http://host/a.avi", "lavf://...": two letters or more, a colon and a slash.
static bool isUrl(const QString& pathText)
{
    const qsizetype colon = pathText.indexOf(u":/"_s);
    if (colon < 2) {
        return false;
    }
    const QStringView scheme = QStringView(pathText).left(colon);
    return std::all_of(scheme.begin(), scheme.end(), [](QChar c) {
        return c.unicode() < 128 && (c.isLetterOrNumber() || u"+.-"_s.contains(c));
    });
}

bool canNameAFile(const QString& pathText)
{
    return !pathText.isEmpty() && !pathText.contains(QChar::Null) && !isUrl(pathText);
}

static PathRoot rootOf(const QString& text)
{
    if (text.startsWith(u'/')) {
        return PathRoot::Linux;
    }
    if (text.startsWith(u'\\')) {
        return PathRoot::Network;
    }
    return hasDriveLetter(text) ? PathRoot::Drive : PathRoot::Folder;
}

static void addPart(PathText& path, const QString& part)
{
    if (part != u"..") {
        path.parts.append(part);
    } else if (path.parts.isEmpty()) {
        path.escapes = true;
    } else {
        path.parts.removeLast();
    }
}

PathText pathTextOf(const QString& text)
{
    PathText path;
    path.root = rootOf(text);
    QString rest = text;
    if (path.root == PathRoot::Drive) {
        path.drive = text[0].toLower();
        rest = text.mid(2);
    }
    if (path.root != PathRoot::Linux) {
        rest.replace(u'\\', u'/');
    }
    for (const QString& part : rest.split(u'/', Qt::SkipEmptyParts)) {
        if (part != u".") {
            addPart(path, part);
        }
    }
    return path;
}

static bool isPlainLetters(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
}

QString foldedName(const QString& name)
{
    return isPlainLetters(name) ? name.toLower()
                                : name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

bool isSameName(const QString& one, const QString& other)
{
    return one == other || foldedName(one) == foldedName(other);
}

qsizetype commonTail(const QStringList& one, const QStringList& other)
{
    const auto [a, b] =
        std::mismatch(one.rbegin(), one.rend(), other.rbegin(), other.rend(), isSameName);
    return a - one.rbegin();
}

/// Made once: each asks the C library for 256 characters.
static const auto& usualPages()
{
    static const std::array pages = {
        CodePage::named(u"windows-1251"_s), CodePage::named(u"windows-1252"_s),
        CodePage::named(u"IBM866"_s), CodePage::named(u"windows-1250"_s)};
    return pages;
}

QStringList otherSpellings(const QString& text)
{
    QStringList spellings;
    if (isPlainLetters(text)) {
        return spellings;
    }
    for (const auto& readBy : usualPages()) {
        const auto bytes = readBy ? readBy->encode(text) : std::nullopt;
        for (const auto& meant : usualPages()) {
            if (bytes && meant && meant != readBy) {
                spellings.append(meant->decode(*bytes));
            }
        }
    }
    spellings.removeDuplicates();
    spellings.removeAll(text);
    return spellings;
}

} // namespace orvanta
