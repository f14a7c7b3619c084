// A box as an image of a disc, made by xorriso: Joliet for Windows, Rock Ridge for Linux.

#include "companions/cdcreate/box_forms.h"
#include "companions/cdcreate/file_copy.h"
#include "companions/cdcreate/image_program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

/// A tree of links, so that nothing is copied twice and no name of a source reaches the program's
/// arguments.
static void makeTree(const BoxContents& contents, const QString& tree)
{
    for (const BoxFile& file : contents.files) {
        (void)openSource(file); // the program would say less about it, and later
        const QString link = tree + u'/' + file.name;
        QDir().mkpath(QFileInfo(link).path());
        const QByteArray source = QFile::encodeName(file.source);
        if (::symlink(source.constData(), QFile::encodeName(link).constData()) != 0) {
            throw targetFailure(link);
        }
    }
    QDir().mkpath(tree);
    for (const BoxDocument& document : contents.documents) {
        writeFile(document.content, tree + u'/' + document.name);
    }
}

/// Signs that every reader of images takes for a disc's name.
static QString volumeName(const QString& title)
{
    constexpr qsizetype kLongest = 16; // in Joliet
    QString name;
    bool isPlain = false;
    for (const QChar c : title.left(kLongest).toUpper()) {
        const bool fits = c.unicode() < 128 && c.isLetterOrNumber();
        isPlain = isPlain || fits;
        name.append(fits ? c : QChar(u'_'));
    }
    return isPlain ? name : u"LESSON"_s;
}

void writeImage(const BoxContents& contents, const BoxPlace& place, BoxWork& work)
{
    const QString tree = place.file(u"tree"_s);
    makeTree(contents, tree);
    work.begin(BoxStep::Writing, contents.fileBytes());
    // -iso-level 3: files of 4 GiB and more. -f: follows the links.
    const QStringList arguments = {u"-as"_s,   u"mkisofs"_s, u"-quiet"_s,
                                   u"-r"_s,    u"-J"_s,      u"-iso-level"_s,
                                   u"3"_s,     u"-f"_s,      u"-input-charset"_s,
                                   u"utf-8"_s, u"-V"_s,      volumeName(contents.title),
                                   u"-o"_s,    place.box(),  tree};
    runImageProgram(arguments, work, [&](const QString&) {
        return std::min(QFileInfo(place.box()).size(), contents.fileBytes());
    });
    place.sync();
    checkArchive(contents, place.box(), work);
}

} // namespace orvanta
