#include "companions/cdcreate/lesson_box.h"

#include "companions/cdcreate/box_documents.h"
#include "core/descriptor.h"
#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/ini.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "model/editing/lesson_saving.h"
#include "platform/process/media_locator.h"
#include "platform/process/path_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <fcntl.h>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kMediaFolder = u"media"_s;
static const QString kPictureFolder = u"pictures"_s;

namespace {

/// What a text of a document becomes.
struct BoxPath
{
    QString name; // in the box; empty for what was not found
    QString text; // as the box's document has it
};

class Gathering
{
public:
    explicit Gathering(BoxWork& work)
        : m_work(work)
    {}

    [[nodiscard]] BoxPlan gather(const QStringList& documents);

private:
    void addDocument(const QString& file, bool isAlone);
    void addGroup(const QString& file, bool isAlone);
    [[nodiscard]] NewMember addMember(const GroupMember& member, int number, const QString& group);
    [[nodiscard]] QString addPacket(const QString& file, const QString& groupFolder,
                                    BoxPacket packet);
    void readPacket(BoxPacket& packet, const QString& groupFolder);
    [[nodiscard]] NewValues takeClips(BoxPacket& packet, const LessonFolders& folders);
    [[nodiscard]] BoxPath look(const MissingPart& part, const LessonFolders& folders,
                               const QString& folderInBox);
    [[nodiscard]] QString nameOfFile(const QString& file, const QString& folderInBox);
    /// Returns the text that the box's document has instead.
    [[nodiscard]] QString addMissing(MissingPart part, const FoundFile& found,
                                     const QString& folderInBox);

    BoxWork& m_work;
    BoxPlan m_plan;
    QHash<QString, QString> m_names;       // of files, by what they are on the disk
    QHash<QString, std::size_t> m_packets; // the first of the plan's packets that is this file
    QHash<QString, QString> m_missing;     // names that wait for a file, by folder and text
    std::vector<NewMember> m_members;
    QByteArray m_group; // its document; empty: it is to be made
};

} // namespace

/// The same for all the names that a file has.
static QString identity(const QString& file)
{
    const auto status = statusOf(QFile::encodeName(file));
    return status ? u"%1:%2"_s.arg(status->st_dev).arg(status->st_ino) : file;
}

static QByteArray contentOf(const QString& file)
{
    const Descriptor document = Descriptor::open(QFile::encodeName(file), O_RDONLY);
    const auto status = document.isOpen() ? document.status() : std::nullopt;
    const bool isFile = status && S_ISREG(status->st_mode);
    return isFile ? document.readAll().value_or(QByteArray()) : QByteArray();
}

/// Of files that this user may not read nobody else could say more.
static FoundFile foundFile(const QString& text, const LessonFolders& folders)
{
    const FoundFile found = findMediaFile(text, folders, SearchDepth::Patient);
    const bool isOpenable = found.file.isEmpty() || QFileInfo(found.file).isReadable();
    return isOpenable ? found : FoundFile{{}, Finding::Refused};
}

BoxPlan Gathering::gather(const QStringList& documents)
{
    m_plan.title = documents.isEmpty() ? QString() : QFileInfo(documents[0]).completeBaseName();
    m_plan.group = m_plan.names.take({}, m_plan.title + u".vxg"_s);
    m_work.begin(BoxStep::Gathering, 0);
    for (const QString& document : documents) {
        addDocument(QDir::cleanPath(QFileInfo(document).absoluteFilePath()), documents.size() == 1);
    }
    m_plan.documents.push_back({m_plan.group, m_group.isEmpty() ? newGroup(m_members) : m_group});
    return std::move(m_plan);
}

void Gathering::addDocument(const QString& file, bool isAlone)
{
    if (!isLessonDocument(file)) {
        m_plan.refused.append(file);
    } else if (isGroupPath(file)) {
        addGroup(file, isAlone);
    } else {
        const QString title = QFileInfo(file).completeBaseName();
        BoxPacket packet;
        packet.title = title;
        const QString name = addPacket(file, {}, std::move(packet));
        m_members.push_back({asPathText(name), title, {}});
    }
}

/// A group that is alone keeps what else its document says.
void Gathering::addGroup(const QString& file, bool isAlone)
{
    std::vector<GroupMember> members;
    if (!resumeNext("group for a box", [&] { members = groupMembers(file); })) {
        m_plan.refused.append(file);
        return;
    }
    NewValues values;
    int number = 0;
    for (const GroupMember& member : members) {
        const NewMember added = addMember(member, ++number, file);
        m_members.push_back(added);
        const QString section = u"file"_s + QString::number(number);
        values.insert({section, u"path"_s}, added.path);
        if (added.picture != member.picture) {
            values.insert({section, u"picture"_s}, added.picture);
        }
    }
    if (isAlone) {
        m_group = rewrittenDocument(contentOf(file), values);
    }
}

static bool isPicture(const QString& text)
{
    return !text.isEmpty() && text != kNoPicture;
}

NewMember Gathering::addMember(const GroupMember& member, int number, const QString& group)
{
    const LessonFolders folders = {.packet = folderOfPath(group)};
    BoxPacket packet;
    packet.title = member.text;
    NewMember added = {member.path, member.text, member.picture};
    if (isPicture(member.picture)) {
        const BoxPath picture = look({group, {CheckedPart::Picture, number, member.picture, {}}},
                                     folders, kPictureFolder);
        packet.picture = picture.name;
        added.picture = picture.text;
    }
    const MissingPart part = {group, {CheckedPart::Packet, number, member.path, {}}};
    const FoundFile found = foundFile(member.path, folders);
    if (found.file.isEmpty()) {
        added.path = addMissing(part, found, {});
        m_plan.packets.push_back(std::move(packet));
    } else {
        added.path = asPathText(addPacket(found.file, folders.packet, std::move(packet)));
    }
    return added;
}

/// Returns its name.
QString Gathering::addPacket(const QString& file, const QString& groupFolder, BoxPacket packet)
{
    m_work.goOn();
    packet.source = file;
    const QString id = identity(file);
    if (const auto known = m_packets.constFind(id); known != m_packets.constEnd()) {
        const BoxPacket& first = m_plan.packets[*known];
        packet.name = first.name;
        packet.entry = first.entry;
        packet.media = first.media;
    } else {
        m_packets.insert(id, m_plan.packets.size());
        packet.name = m_plan.names.take({}, QFileInfo(file).fileName());
        readPacket(packet, groupFolder);
    }
    m_plan.packets.push_back(std::move(packet));
    return m_plan.packets.back().name;
}

/// A packet that cannot be read goes along as it is.
void Gathering::readPacket(BoxPacket& packet, const QString& groupFolder)
{
    const QByteArray original = contentOf(packet.source);
    NewValues values;
    if (resumeNext("packet for a box", [&] { readPacketInto(packet.entry, packet.source); })) {
        values = takeClips(packet, {folderOfPath(packet.source), groupFolder});
    } else {
        const FoundFile refused = {{}, Finding::Refused};
        m_plan.missing.push_back(
            {packet.source, {CheckedPart::Packet, 1, packet.source, refused}, packet.name});
    }
    m_plan.documents.push_back({packet.name, rewrittenDocument(original, values)});
}

/// Gives the packet's clips their names, and returns what its document is to say.
NewValues Gathering::takeClips(BoxPacket& packet, const LessonFolders& folders)
{
    NewValues values;
    const PlaylistEntry& entry = packet.entry;
    const auto take = [&](const QString& text, int number) {
        const BoxPath path =
            look({packet.source, {CheckedPart::Clip, number, text, {}}}, folders, kMediaFolder);
        packet.media.append(path.name);
        return path.text;
    };
    if (entry.HasBrakes) {
        const QString text = take(entry.MediaFile, 1);
        values.insert({u"main"_s, u"file"_s}, text);
        values.insert({u"file1"_s, u"path"_s}, text); // the clip that older readers play
        if (ReadIni(u"file1"_s, u"text"_s, packet.source) == entry.MediaFile) {
            values.insert({u"file1"_s, u"text"_s}, text);
        }
        return values;
    }
    int number = 0;
    for (const ClipEntry& clip : entry.Clips) {
        const QString section = u"file"_s + QString::number(++number);
        if (const QString text = take(clip.Path, number); text != clip.Path) {
            values.insert({section, u"path"_s}, text);
        }
    }
    return values;
}

BoxPath Gathering::look(const MissingPart& part, const LessonFolders& folders,
                        const QString& folderInBox)
{
    m_work.goOn();
    const FoundFile found = foundFile(part.what.text, folders);
    if (!found.file.isEmpty()) {
        const QString name = nameOfFile(found.file, folderInBox);
        return {name, asPathText(name)};
    }
    return {{}, addMissing(part, found, folderInBox)};
}

QString Gathering::nameOfFile(const QString& file, const QString& folderInBox)
{
    const QString id = identity(file);
    QString& name = m_names[id];
    if (name.isEmpty()) {
        name = m_plan.names.take(folderInBox, QFileInfo(file).fileName());
        m_plan.files.push_back({file, name, QFileInfo(file).size()});
    }
    return name;
}

/// An address stays as it is, and so does what names nothing.
QString Gathering::addMissing(MissingPart part, const FoundFile& found, const QString& folderInBox)
{
    part.what.found = found;
    const QString text = part.what.text;
    if (canNameAFile(text) && !fileNameOfPath(text).isEmpty()) {
        QString& name = m_missing[folderInBox + QChar(u'\0') + text];
        if (name.isEmpty()) {
            name = m_plan.names.take(folderInBox, fileNameOfPath(text));
        }
        part.name = name;
    }
    m_plan.missing.push_back(part);
    return part.name.isEmpty() ? text : asPathText(part.name);
}

BoxPlan gatherLesson(const QStringList& documents, BoxWork& work)
{
    beginSearches();
    return Gathering(work).gather(documents);
}

} // namespace orvanta
