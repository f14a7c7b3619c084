#include "core/packet_file.h"

#include "core/document_writer.h"
#include "core/error_boundary.h"
#include "core/ini.h"
#include "core/ini_memory.h"
#include "core/numbers.h"
#include "core/paths.h"

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// The two fields of an entry. They stay from the entry before when one has no marker: packets
/// have always been written like that.
struct EntryFields
{
    QString first;
    QString second;

    void split(const QString& entry)
    {
        const QStringView marker(kEntryMarker);
        const qsizetype at = entry.indexOf(marker);
        if (at >= 0) {
            first = entry.left(at);
            second = entry.mid(at + marker.size());
        }
    }
};

} // namespace

static QString joined(const QString& first, const QString& second)
{
    return first + QStringView(kEntryMarker).toString() + second;
}

static QString numbered(const QString& word, int index)
{
    return word + QString::number(index);
}

/// Writes entries as sections word1, word2, ... with the given key for the first field.
static void writeEntries(DocumentWriter& writer, const QString& word, const QString& firstKey,
                         const QStringList& entries)
{
    EntryFields fields;
    int index = 0;
    for (const QString& entry : entries) {
        fields.split(entry);
        const QString section = numbered(word, ++index);
        writer.write(section, firstKey, fields.first);
        writer.write(section, u"text"_s, fields.second);
    }
}

/// Raises 13, 6, or 9 when it is negative: no list has that size.
/// A packet of more entries is read once more from its file when somebody asks for it: its text and
/// the places of its sections would take a third of the memory of the list.
constexpr int kKeptInMemory = 500;

static Int16 listSize(const QString& text)
{
    const Int16 count = countValue(text);
    if (count < 0) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return count;
}

/// An absent count is 0.
static Int16 optionalListSize(const IniSnapshot& packet, const QString& key)
{
    return listSize(packet.read(u"main"_s, key, u"0"_s));
}

/// Sized at once: every entry of a large packet is there before the first one is read.
static void resizeClips(PlaylistEntry& entry, Int16 count, qsizetype room)
{
    if (count.value() > room) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    entry.Clips.assign(count.index(), {});
    entry.ClipCount = count;
}

static void readBrakes(PlaylistEntry& entry, const IniSnapshot& packet)
{
    int index = 0;
    for (ClipEntry& brake : entry.Clips) {
        const QString section = numbered(u"brake"_s, ++index);
        brake.Time = packet.read(section, u"time"_s);
        brake.Text = packet.read(section, u"text"_s);
    }
}

static void readClips(PlaylistEntry& entry, const IniSnapshot& packet)
{
    int index = 0;
    for (ClipEntry& clip : entry.Clips) {
        const QString section = numbered(u"file"_s, ++index);
        clip.Path = packet.read(section, u"path"_s);
        clip.Text = packet.read(section, u"text"_s);
    }
}

QString countText(const QStringList& entries)
{
    return QString::number(Int16(entries.size()).value());
}

void writeClipListPacket(const QString& target, const QStringList& entries)
{
    DocumentWriter writer(target);
    writer.write(u"main"_s, u"files"_s, countText(entries));
    writeEntries(writer, u"file"_s, u"path"_s, entries);
    writer.finish();
}

void writeBrakePacket(const QString& target, const QString& clipPath, const QString& mediaFile,
                      const QStringList& entries)
{
    DocumentWriter writer(target);
    writer.write(u"main"_s, u"files"_s, u"1"_s);
    writer.write(u"file1"_s, u"path"_s, clipPath);
    writer.write(u"file1"_s, u"text"_s, clipPath);
    writer.write(u"main"_s, u"file"_s, mediaFile);
    writer.write(u"main"_s, u"brakes"_s, countText(entries));
    writeEntries(writer, u"brake"_s, u"time"_s, entries);
    writer.finish();
}

void readPacketInto(PlaylistEntry& entry, const QString& path, qsizetype room)
{
    const IniSnapshot packet(path);
    entry.Folder = folderOfPath(path);
    entry.Origin = std::make_shared<PacketOrigin>(PacketOrigin{.file = path, .member = {}});
    if (decimalValue(packet.read(u"main"_s, u"brakes"_s, u"0"_s)) != 0) {
        entry.HasBrakes = true;
        entry.MediaFile = packet.read(u"main"_s, u"file"_s);
        resizeClips(entry, optionalListSize(packet, u"brakes"_s), room);
        readBrakes(entry, packet);
    } else {
        resizeClips(entry, optionalListSize(packet, u"files"_s), room);
        readClips(entry, packet);
    }
    if (entry.ClipCount.value() > kKeptInMemory) {
        forgetIni(path);
    }
}

void readClipListEntries(const QString& path, QStringList& entries)
{
    const IniSnapshot packet(path);
    const Int16 count = listSize(packet.read(u"main"_s, u"files"_s));
    for (int i = 1; i <= count.value(); ++i) {
        const QString section = numbered(u"file"_s, i);
        entries.append(joined(packet.read(section, u"path"_s), packet.read(section, u"text"_s)));
    }
}

BrakeDocument readBrakeDocument(const QString& path)
{
    const IniSnapshot packet(path);
    BrakeDocument document;
    document.mediaFile = packet.read(u"main"_s, u"file"_s);
    Int16 count;
    resumeNext("number of brakes", [&] { count = optionalListSize(packet, u"brakes"_s); });
    for (int i = 1; i <= count.value(); ++i) {
        const QString section = numbered(u"brake"_s, i);
        document.entries.append(
            joined(packet.read(section, u"time"_s), packet.read(section, u"text"_s)));
    }
    return document;
}

} // namespace orvanta
