#include "platform/file_types/mime_globs.h"

#include "platform/file_types/desktop_files.h"
#include "platform/file_types/desktop_folders.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

static QStringList globFiles()
{
    QStringList files;
    for (const QString& folder : DesktopFolders::dataFolders()) {
        files.append(folder + u"/mime/globs2"_s);
    }
    return files;
}

static QByteArray stampOf(const QStringList& files)
{
    QByteArray stamp;
    for (const QString& file : files) {
        const QFileInfo info(file);
        stamp += file.toUtf8() + ' ' + QByteArray::number(info.size()) + ' ' +
                 QByteArray::number(info.lastModified().toMSecsSinceEpoch()) + '\n';
    }
    return stamp;
}

static bool isMedia(const QString& type)
{
    return type.startsWith(u"video/") || type.startsWith(u"audio/");
}

void MimeGlobs::readWhenChanged()
{
    const QStringList files = globFiles();
    const QByteArray stamp = stampOf(files);
    if (stamp == m_stamp) {
        return;
    }
    m_stamp = stamp;
    m_globs.clear();
    for (const QString& file : files) {
        const QString content = QString::fromUtf8(contentOf(file));
        for (const QStringView line : QStringView(content).split(u'\n')) {
            readLine(line, file == files.constFirst());
        }
    }
}

/// "50:video/x-msvideo:*.avi" or "50:text/x-c++src:*.C:cs"; '#' begins a comment.
void MimeGlobs::readLine(QStringView line, bool isUsers)
{
    const QList<QStringView> fields = line.split(u':');
    if (line.startsWith(u'#') || fields.size() < 3 || !fields[2].startsWith(u"*.")) {
        return;
    }
    const QStringView extension = fields[2].mid(2);
    const bool isPlain = std::none_of(extension.begin(), extension.end(),
                                      [](QChar c) { return c == u'*' || c == u'?' || c == u'['; });
    if (isPlain && (fields.size() == 3 || fields[3] != u"cs")) {
        m_globs[extension.toString().toLower()].append(
            {fields[0].toInt(), fields[1].toString(), isUsers});
    }
}

bool MimeGlobs::isSystems(const QString& extension) const
{
    const QList<Glob> globs = m_globs.value(extension.toLower());
    return std::any_of(globs.cbegin(), globs.cend(), [](const Glob& g) { return !g.isUsers; });
}

QStringList MimeGlobs::typesOf(const QString& extension) const
{
    QList<Glob> globs = m_globs.value(extension.toLower());
    const auto media = [](const Glob& glob) { return isMedia(glob.type); };
    if (std::any_of(globs.cbegin(), globs.cend(), media)) {
        globs.removeIf([&](const Glob& glob) { return !media(glob); });
    }
    std::stable_sort(globs.begin(), globs.end(),
                     [](const Glob& a, const Glob& b) { return a.weight > b.weight; });
    QStringList types;
    for (const Glob& glob : globs) {
        types.append(glob.type);
    }
    types.removeDuplicates();
    return types;
}

} // namespace orvanta
