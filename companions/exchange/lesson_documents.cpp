#include "companions/exchange/lesson_documents.h"

#include "core/document_saving.h"
#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "core/run_time_error.h"
#include "model/editing/time_text.h"
#include "model/lesson_check.h"
#include "model/lesson_lines.h"
#include "platform/process/media_locator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace orvanta {

using namespace Qt::StringLiterals;

QString writtenText(const QString& text)
{
    QString plain = text;
    plain.remove(QChar::Null);
    const QString quoted = u'"' + plain + u'"';
    return asDocumentHolds(plain) != plain && asDocumentHolds(quoted) == plain ? quoted : plain;
}

static QString pathText(const QString& path, const QString& folder)
{
    const QString relative = path.startsWith(u'/') ? relativePathText(folder, path) : QString();
    return relative.isEmpty() ? writtenText(path) : relative;
}

static PlaylistEntry entryOfPacket(const LessonPacket& packet, const QString& folder)
{
    PlaylistEntry entry;
    for (const LessonClip& clip : packet.clips) {
        entry.Clips.push_back(
            {.Time = {}, .Text = writtenText(clip.text), .Path = pathText(clip.path, folder)});
    }
    if (!packet.marks.empty()) {
        entry.HasBrakes = true;
        entry.MediaFile = pathText(packet.markedClip, folder);
    }
    for (const LessonMark& mark : packet.marks) {
        entry.Clips.push_back(
            {.Time = storedTime(mark.seconds), .Text = writtenText(mark.text), .Path = {}});
    }
    entry.ClipCount = Int16(static_cast<qint64>(entry.Clips.size()));
    return entry;
}

namespace {

/// Files that are to go again unless all are written.
class NewFiles
{
public:
    ~NewFiles()
    {
        for (const QString& file : m_files) {
            QFile::remove(file);
        }
    }
    NewFiles() = default;
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;

    /// What was there before is not ours to remove.
    void expect(const QString& file)
    {
        if (!QFileInfo::exists(file)) {
            m_files.append(file);
        }
    }
    void keep() { m_files.clear(); }

private:
    QStringList m_files;
};

} // namespace

static QString withoutEnding(const QString& file)
{
    const QFileInfo info(file);
    return info.path() + u'/' + info.completeBaseName();
}

static QString memberFileOf(const QString& group, std::size_t number, std::size_t count)
{
    const auto digits = static_cast<int>(QString::number(count).size());
    return withoutEnding(group) +
           u" %1.vxl"_s.arg(static_cast<int>(number), digits, 10, QLatin1Char('0'));
}

void writeLesson(const Lesson& lesson, const QString& target)
{
    const QString folder = QFileInfo(target).path();
    NewFiles files;
    files.expect(target);
    if (kindOfPath(target) != u"VXG") {
        savePacket(entryOfPacket(lesson.packets.front(), folder), target, {});
        files.keep();
        return;
    }
    std::vector<GroupMember> members;
    const Int16 count(static_cast<qint64>(lesson.packets.size()));
    for (const LessonPacket& packet : lesson.packets) {
        const QString file = memberFileOf(target, members.size() + 1, count.index());
        files.expect(file);
        savePacket(entryOfPacket(packet, folder), file, {});
        members.push_back({.path = QFileInfo(file).fileName(),
                           .text = writtenText(packet.title),
                           .picture = QStringView(kNoPicture).toString()});
    }
    saveGroup(members, target, {});
    files.keep();
}

/// A name that every file system takes.
static QString safeName(const QString& title)
{
    constexpr qsizetype kLongest = 60;
    static const QString kUnfit = u"/\\:*?\"<>|"_s;
    QString name;
    for (const QChar c : title.left(kLongest)) {
        name += kUnfit.contains(c) || c.category() == QChar::Other_Control ? QChar(u'_') : c;
    }
    name = name.trimmed();
    while (name.startsWith(u'.')) {
        name.remove(0, 1);
    }
    return name.isEmpty() ? u"lesson"_s : name;
}

/// Neither the document nor, of a group, its first packet.
static bool isFree(const Lesson& lesson, const QString& file)
{
    const std::size_t count = lesson.packets.size();
    return !QFileInfo::exists(file) &&
           (count == 1 || !QFileInfo::exists(memberFileOf(file, 1, count)));
}

QString proposedDocument(const Lesson& lesson, const QString& folder)
{
    const QString ending = lesson.packets.size() == 1 ? u".vxl"_s : u".vxg"_s;
    const QString name = folder + u'/' + safeName(lesson.title);
    QString file = name + ending;
    for (int number = 2; !isFree(lesson, file); ++number) {
        file = name + u" (%1)"_s.arg(number) + ending;
    }
    return file;
}

/// Where the file is; a path below the packet's folder when nobody knows.
static QString wholePathOf(const QString& text, const LessonFolders& folders)
{
    const QString file = findMediaFile(text, folders, SearchDepth::Patient).file;
    const bool isRelative = !text.startsWith(u'/') && !text.contains(u'\\') && !text.contains(u':');
    return !file.isEmpty() ? file : isRelative ? QDir(folders.packet).filePath(text) : text;
}

static LessonPacket markedPacket(const PlaylistEntry& entry, const LessonFolders& folders,
                                 std::vector<FileRemark>& leftOut)
{
    LessonPacket packet = {
        .title = entry.Title, .markedClip = wholePathOf(entry.MediaFile, folders), .hasEnd = true};
    for (int i = 1; i <= static_cast<int>(entry.Clips.size()); ++i) {
        const QString& text = entry.Clips[static_cast<std::size_t>(i) - 1].Text;
        if (const std::optional<double> seconds = brakeTime(entry, i)) {
            packet.marks.push_back({*seconds, text});
        } else {
            leftOut.push_back({entry.Origin->file, {u"noTime", 0, text}});
        }
    }
    return packet;
}

static LessonPacket packetOf(const PlaylistEntry& entry, const QString& groupFolder,
                             std::vector<FileRemark>& leftOut)
{
    const LessonFolders folders = {.packet = entry.Folder, .group = groupFolder};
    if (entry.HasBrakes) {
        return markedPacket(entry, folders, leftOut);
    }
    LessonPacket packet = {.title = entry.Title};
    for (const ClipEntry& clip : entry.Clips) {
        packet.clips.push_back({wholePathOf(clip.Path, folders), clip.Text});
    }
    return packet;
}

static QString pictureOf(const PlaylistEntry& entry, const QString& groupFolder)
{
    const bool hasOne = !entry.Picture.isEmpty() && entry.Picture != kNoPicture;
    return hasOne ? wholePathOf(entry.Picture, {.packet = groupFolder}) : QString();
}

static std::vector<PlaylistEntry> entriesOfDocument(const QString& document)
{
    std::vector<PlaylistEntry> entries;
    if (kindOfPath(document) == u"VXG") {
        const QString folder = folderOfPath(document);
        readGroupInto(entries, document, [&](const QString& member) {
            return findMediaFile(member, {.packet = folder}, SearchDepth::Patient).file;
        });
    } else {
        entries.emplace_back().Title = QFileInfo(document).completeBaseName();
        readPacketInto(entries.back(), document);
    }
    return entries;
}

ImportedLesson readLessonDocument(const QString& document)
{
    ImportedLesson read;
    const QString whole = QFileInfo(document).absoluteFilePath();
    const bool isDocument =
        QFileInfo(whole).isFile() && (kindOfPath(whole) == u"VXG" || kindOfPath(whole) == u"VXL");
    beginSearches();
    trapped("reading the lesson", [&] {
        if (!isDocument) {
            throw RuntimeError(ErrorNumber::FileNotFound);
        }
        for (const PlaylistEntry& entry : entriesOfDocument(whole)) {
            LessonPacket packet = packetOf(entry, folderOfPath(whole), read.leftOut);
            packet.picture = pictureOf(entry, folderOfPath(whole));
            read.lesson.packets.push_back(std::move(packet));
        }
    });
    read.lesson.title = QFileInfo(whole).completeBaseName();
    return read;
}

} // namespace orvanta
