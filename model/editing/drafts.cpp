#include "model/editing/drafts.h"

#include "core/document_writer.h"
#include "core/error_boundary.h"
#include "core/ini.h"
#include "core/numbers.h"
#include "core/packet_file.h"
#include "model/editing/lesson_saving.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kHashDigits = 16;
static const QString kHead = u"draft"_s;

Drafts::Drafts(const QString& applicationFolder)
    : m_folder(applicationFolder + u"/drafts/"_s)
{}

static QString hashOf(const QString& document)
{
    const QByteArray hash =
        QCryptographicHash::hash(document.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QString::fromLatin1(hash.left(kHashDigits));
}

QString Drafts::fileOf(const QString& document) const
{
    return m_folder + hashOf(document) + u".draft"_s;
}

/// Numbers from 1, the newest has the highest.
QString Drafts::fileAside(const QString& document, int number) const
{
    return u"%1%2-%3.draft"_s.arg(m_folder, hashOf(document)).arg(number);
}

int Drafts::countAside(const QString& document) const
{
    int count = 0;
    while (QFileInfo::exists(fileAside(document, count + 1))) {
        ++count;
    }
    return count;
}

QString Drafts::newestFile(const QString& document) const
{
    const QString file = fileOf(document);
    const int aside = QFileInfo::exists(file) ? 0 : countAside(document);
    return aside == 0 ? file : fileAside(document, aside);
}

void Drafts::setAside(const QString& document) const
{
    QFile::rename(fileOf(document), fileAside(document, countAside(document) + 1));
}

void Drafts::takeUp(const QString& document) const
{
    QFile::rename(newestFile(document), fileOf(document));
}

static QString packetSection(std::size_t index)
{
    return u"packet"_s + QString::number(index + 1);
}

static QString lineSection(std::size_t packet, std::size_t line)
{
    return packetSection(packet) + u".line"_s + QString::number(line + 1);
}

/// Number, from 1, of the packet among those that were saved; 0 where it differs from all.
static qsizetype savedNumber(const PlaylistEntry& packet, const std::vector<PlaylistEntry>& saved)
{
    if (!packet.Origin || packet.Origin->file.isEmpty()) {
        return 0;
    }
    const auto same = std::find_if(saved.begin(), saved.end(), [&](const PlaylistEntry& entry) {
        return entry.Origin == packet.Origin && isSamePacket(entry, packet);
    });
    return same == saved.end() ? 0 : same - saved.begin() + 1;
}

static void writeLines(DocumentWriter& writer, const PlaylistEntry& packet, std::size_t number)
{
    for (std::size_t line = 0; line < packet.Clips.size(); ++line) {
        const QString section = lineSection(number, line);
        const ClipEntry& entry = packet.Clips[line];
        if (packet.HasBrakes) {
            writer.write(section, u"time"_s, entry.Time);
        } else {
            writer.write(section, u"path"_s, entry.Path);
        }
        writer.write(section, u"text"_s, entry.Text);
    }
}

static void writePacket(DocumentWriter& writer, const PlaylistEntry& packet, std::size_t number,
                        qsizetype savedAs)
{
    const QString section = packetSection(number);
    writer.write(section, u"title"_s, packet.Title);
    writer.write(section, u"picture"_s, packet.Picture);
    writer.write(section, u"picturefolder"_s, packet.PictureFolder);
    writer.write(section, u"file"_s, packet.Origin ? packet.Origin->file : QString());
    writer.write(section, u"member"_s, packet.Origin ? packet.Origin->member : QString());
    writer.write(section, u"was"_s, QString::number(savedAs));
    if (savedAs > 0) {
        return;
    }
    writer.write(section, u"folder"_s, packet.Folder);
    writer.write(section, u"media"_s, packet.MediaFile);
    writer.write(section, u"brakes"_s, packet.HasBrakes ? u"1"_s : u"0"_s);
    writer.write(section, u"lines"_s, QString::number(packet.Clips.size()));
    writeLines(writer, packet, number);
}

static void writeDraft(const QString& file, const PlaylistState& playlist,
                       const std::vector<PlaylistEntry>& saved)
{
    DocumentWriter writer(file, DocumentWriter::Earlier::Gone);
    writer.write(kHead, u"document"_s, playlist.Document);
    writer.write(kHead, u"kept"_s, QDateTime::currentDateTime().toString(Qt::ISODate));
    writer.write(kHead, u"packets"_s, QString::number(playlist.Playlist.size()));
    for (std::size_t number = 0; number < playlist.Playlist.size(); ++number) {
        const PlaylistEntry& packet = playlist.Playlist[number];
        writePacket(writer, packet, number, savedNumber(packet, saved));
    }
    writer.finish();
}

bool Drafts::keep(const PlaylistState& playlist, const std::vector<PlaylistEntry>& saved) const
{
    return QDir().mkpath(m_folder) && resumeNext("draft of what is edited", [&] {
               writeDraft(fileOf(playlist.Document), playlist, saved);
           });
}

void Drafts::discard(const QString& document) const
{
    QFile::remove(fileOf(document));
}

static std::optional<DraftInfo> infoOf(const QString& file)
{
    if (!QFileInfo(file).isFile()) {
        return std::nullopt;
    }
    const IniSnapshot draft(file);
    const QDateTime kept = QDateTime::fromString(draft.read(kHead, u"kept"_s), Qt::ISODate);
    return kept.isValid() ? std::optional(DraftInfo{draft.read(kHead, u"document"_s), kept})
                          : std::nullopt;
}

std::optional<DraftInfo> Drafts::of(const QString& document) const
{
    const std::optional<DraftInfo> info = infoOf(newestFile(document));
    return info && info->document == document ? info : std::nullopt;
}

std::vector<DraftInfo> Drafts::all() const
{
    std::vector<DraftInfo> drafts;
    const QDir folder(m_folder);
    for (const QString& name : folder.entryList({u"*.draft"_s}, QDir::Files)) {
        if (const std::optional<DraftInfo> info = infoOf(m_folder + name)) {
            drafts.push_back(*info);
        }
    }
    std::sort(drafts.begin(), drafts.end(),
              [](const DraftInfo& a, const DraftInfo& b) { return a.kept > b.kept; });
    return drafts;
}

/// Where the packet is open and as it was saved; null without.
static const PlaylistEntry* openPacket(const PlaylistState& playlist, const QString& file,
                                       qsizetype number)
{
    const auto isIt = [&](const PlaylistEntry& entry) {
        return entry.Origin && entry.Origin->file == file;
    };
    const auto& packets = playlist.Playlist;
    const auto index = static_cast<std::size_t>(number - 1);
    if (index < packets.size() && isIt(packets[index])) {
        return &packets[index];
    }
    const auto found = std::find_if(packets.begin(), packets.end(), isIt);
    return found == packets.end() ? nullptr : &*found;
}

static void readLines(PlaylistEntry& packet, const IniSnapshot& draft, std::size_t number)
{
    for (std::size_t line = 0; line < packet.Clips.size(); ++line) {
        const QString section = lineSection(number, line);
        packet.Clips[line] = {.Time = draft.read(section, u"time"_s),
                              .Text = draft.read(section, u"text"_s),
                              .Path = draft.read(section, u"path"_s)};
    }
}

/// Raises 13, 6 or 9 for a spoilt count.
static std::size_t sizeIn(const IniSnapshot& draft, const QString& section, const QString& key)
{
    const Int16 size = countValue(draft.read(section, key));
    if (size < 0) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return size.index();
}

static PlaylistEntry readChanged(const IniSnapshot& draft, std::size_t number)
{
    const QString section = packetSection(number);
    PlaylistEntry packet;
    packet.Folder = draft.read(section, u"folder"_s);
    packet.MediaFile = draft.read(section, u"media"_s);
    packet.HasBrakes = draft.read(section, u"brakes"_s) == u"1";
    packet.Clips.resize(sizeIn(draft, section, u"lines"_s));
    packet.ClipCount = Int16(static_cast<qint64>(packet.Clips.size()));
    readLines(packet, draft, number);
    return packet;
}

static PlaylistEntry readPacket(const IniSnapshot& draft, std::size_t number,
                                const PlaylistState& playlist)
{
    const QString section = packetSection(number);
    const QString file = draft.read(section, u"file"_s);
    const auto savedAs = static_cast<qsizetype>(sizeIn(draft, section, u"was"_s));
    PlaylistEntry packet;
    const PlaylistEntry* open = openPacket(playlist, file, savedAs);
    if (savedAs == 0) {
        packet = readChanged(draft, number);
    } else if (open != nullptr) {
        packet = *open;
    } else {
        readPacketInto(packet, file);
    }
    packet.Title = draft.read(section, u"title"_s);
    packet.Picture = draft.read(section, u"picture"_s);
    packet.PictureFolder = draft.read(section, u"picturefolder"_s);
    if (open != nullptr && !file.isEmpty()) {
        packet.Origin = open->Origin;
    } else {
        packet.Origin = std::make_shared<PacketOrigin>(
            PacketOrigin{.file = file, .member = draft.read(section, u"member"_s)});
    }
    return packet;
}

std::optional<std::vector<PlaylistEntry>> Drafts::packets(const QString& document,
                                                          const PlaylistState& playlist) const
{
    if (!of(document)) {
        return std::nullopt;
    }
    const IniSnapshot draft(newestFile(document));
    std::vector<PlaylistEntry> packets;
    const bool whole = resumeNext("reading a draft", [&] {
        const std::size_t count = sizeIn(draft, kHead, u"packets"_s);
        for (std::size_t number = 0; number < count; ++number) {
            packets.push_back(readPacket(draft, number, playlist));
        }
    });
    return whole ? std::optional(std::move(packets)) : std::nullopt;
}

static bool isSameMember(const PlaylistEntry& a, const PlaylistEntry& b)
{
    const auto fileOfEntry = [](const PlaylistEntry& entry) {
        return entry.Origin ? entry.Origin->file : QString();
    };
    return isSamePacket(a, b) && a.Title == b.Title && a.Picture == b.Picture &&
           fileOfEntry(a) == fileOfEntry(b);
}

void Drafts::discardWhatIsSaved(const PlaylistState& playlist) const
{
    const QString& document = playlist.Document;
    const auto drafted = document.isEmpty() ? std::nullopt : packets(document, playlist);
    const auto& open = playlist.Playlist;
    if (drafted &&
        std::equal(drafted->begin(), drafted->end(), open.begin(), open.end(), isSameMember)) {
        QFile::remove(newestFile(document));
    }
}

} // namespace orvanta
