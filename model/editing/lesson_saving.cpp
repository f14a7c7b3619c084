#include "model/editing/lesson_saving.h"

#include "core/document_saving.h"
#include "core/paths.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <memory>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kMostTitleCharacters = 80;

bool isGroupPath(const QString& path)
{
    return path.endsWith(u".vxg"_s, Qt::CaseInsensitive);
}

QString absolutePathText(const QString& path, const QString& folder)
{
    const bool meansTheSame = path.isEmpty() || folder.isEmpty() || isAbsolutePathText(path);
    return meansTheSame ? path : folder + QString(path).replace(u'\\', u'/');
}

static bool isSameLine(const ClipEntry& a, const ClipEntry& b)
{
    return a.Time == b.Time && a.Text == b.Text && a.Path == b.Path;
}

bool isSamePacket(const PlaylistEntry& a, const PlaylistEntry& b)
{
    return a.HasBrakes == b.HasBrakes && a.MediaFile == b.MediaFile &&
           std::equal(a.Clips.begin(), a.Clips.end(), b.Clips.begin(), b.Clips.end(), isSameLine);
}

LessonSaving::LessonSaving(PlaylistState& playlist, std::vector<PlaylistEntry> saved)
    : m_playlist(playlist),
      m_saved(std::move(saved))
{}

void LessonSaving::begin()
{
    m_saved = m_playlist.Playlist;
}

bool LessonSaving::needsTarget() const
{
    const QString& document = m_playlist.Document;
    return document.isEmpty() || (!isGroupPath(document) && !fitsPacket());
}

bool LessonSaving::isAsSaved(const PlaylistEntry& packet) const
{
    return std::any_of(m_saved.begin(), m_saved.end(), [&](const PlaylistEntry& saved) {
        return saved.Origin == packet.Origin && packet.Origin != nullptr &&
               isSamePacket(saved, packet);
    });
}

/// A title as a file's name, without what some file system refuses.
static QString safeName(const QString& title)
{
    static const QRegularExpression refused(uR"([\x00-\x1f\x7f/\\:*?"<>|]+)"_s);
    QString name = title.left(kMostTitleCharacters);
    name.replace(refused, u" "_s);
    name = name.simplified();
    while (name.startsWith(u'.')) {
        name.remove(0, 1);
    }
    return name.isEmpty() ? u"packet"_s : name;
}

static QString unusedFile(const QString& folder, const QString& name)
{
    QString path = folder + name + u".vxl"_s;
    for (int number = 2; QFileInfo(path).isSymLink() || QFileInfo::exists(path); ++number) {
        path = folder + name + u' ' + QString::number(number) + u".vxl"_s;
    }
    return path;
}

static QString fileOf(const PlaylistEntry& packet)
{
    return packet.Origin ? packet.Origin->file : QString();
}

QString LessonSaving::fileFor(const PlaylistEntry& packet, const QString& group) const
{
    const bool goesElsewhere = group != m_playlist.Document && !isAsSaved(packet);
    QString present = fileOf(packet);
    if (!present.isEmpty() && !goesElsewhere) {
        return present;
    }
    return unusedFile(folderOfPath(group), safeName(packet.Title));
}

void LessonSaving::saveOnePacket(PlaylistEntry& packet, const QString& target)
{
    const QString folder = folderOfPath(target);
    if (packet.Folder != folder) {
        packet.MediaFile = absolutePathText(packet.MediaFile, packet.Folder);
        for (ClipEntry& clip : packet.Clips) {
            clip.Path = absolutePathText(clip.Path, packet.Folder);
        }
    }
    savePacket(packet, target, fileOf(packet));
    packet.Folder = folder;
    if (!packet.Origin) {
        packet.Origin = std::make_shared<PacketOrigin>();
    }
    packet.Origin->file = target;
}

/// As the group writes a member's path: as it did, beside it by the name alone, else in full.
static QString memberText(const PlaylistEntry& packet, const QString& file,
                          const QString& formerFile, const QString& group,
                          const QString& formerGroup)
{
    const QString folder = folderOfPath(group);
    QString member = packet.Origin ? packet.Origin->member : QString();
    const bool stays = file == formerFile && folder == folderOfPath(formerGroup);
    if (stays && !member.isEmpty()) {
        return member;
    }
    return folderOfPath(file) == folder ? fileNameOfPath(file) : file;
}

void LessonSaving::saveGroupTo(const QString& target)
{
    const QString former = isGroupPath(m_playlist.Document) ? m_playlist.Document : QString();
    std::vector<GroupMember> members;
    for (PlaylistEntry& packet : m_playlist.Playlist) {
        const QString formerFile = fileOf(packet);
        const QString file = fileFor(packet, target);
        if (file != formerFile || !isAsSaved(packet)) {
            if (packet.Origin && file != formerFile && !formerFile.isEmpty()) {
                packet.Origin = std::make_shared<PacketOrigin>(*packet.Origin); // a copy of it
            }
            saveOnePacket(packet, file);
        }
        const QString member = memberText(packet, file, formerFile, target, former);
        if (packet.Origin) {
            packet.Origin->member = member;
        }
        QString picture = packet.Picture;
        if (folderOfPath(target) != packet.PictureFolder) {
            picture = absolutePathText(picture, packet.PictureFolder);
        }
        members.push_back({member, packet.Title, picture});
        packet.Picture = picture;
        packet.PictureFolder = folderOfPath(target);
    }
    saveGroup(members, target, former);
}

namespace {

/// What is open as it was, origins and all: packets share theirs with what was saved.
class Before
{
public:
    explicit Before(const std::vector<PlaylistEntry>& playlist)
        : m_playlist(playlist)
    {
        for (const PlaylistEntry& packet : playlist) {
            m_origins.push_back(packet.Origin ? *packet.Origin : PacketOrigin());
        }
    }

    void putBack(std::vector<PlaylistEntry>& playlist) const
    {
        playlist = m_playlist;
        for (std::size_t i = 0; i < playlist.size(); ++i) {
            if (playlist[i].Origin) {
                *playlist[i].Origin = m_origins[i];
            }
        }
    }

private:
    std::vector<PlaylistEntry> m_playlist;
    std::vector<PacketOrigin> m_origins;
};

} // namespace

void LessonSaving::write(const QString& target)
{
    if (isGroupPath(target)) {
        saveGroupTo(target);
    } else if (fitsPacket()) {
        saveOnePacket(m_playlist.Playlist.front(), target);
    } else {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
}

void LessonSaving::save(const QString& target)
{
    const Before before(m_playlist.Playlist);
    try {
        write(target);
    } catch (...) {
        if (target != m_playlist.Document) { // half of it would be there, half here
            before.putBack(m_playlist.Playlist);
        }
        throw;
    }
    m_playlist.Document = target;
    m_playlist.PacketFolder = folderOfPath(target);
    begin();
}

} // namespace orvanta
