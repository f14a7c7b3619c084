#include "model/drop.h"

#include "core/ini.h"
#include "core/numbers.h"
#include "core/packet_file.h"
#include "model/loaders.h"

#include <QFileInfo>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

class Drop
{
public:
    Drop(PlaylistState& playlist, const QString& typePattern)
        : m_playlist(playlist),
          m_typePattern(typePattern),
          m_target(playlist.PlaylistCount),
          m_packetsBefore(m_target),
          m_room(kMostEntries - playlist.entryCount()),
          m_clipsBefore(m_target < 1 ? Int16(0) : playlist.packet(m_target).ClipCount)
    {}

    void add(const QString& file)
    {
        const QString ending = file.right(3);
        if (QFileInfo(file).isDir()) { // whatever its name ends in
            addFolder(file);
        } else if (ending == u"vxg"_s) {
            appendGroup(m_playlist, file);
            m_room = kMostEntries - m_playlist.entryCount();
            m_result.groupDropped = true;
        } else if (ending == u"vxl"_s) {
            addPacket(file);
        } else {
            addClip(file);
        }
    }

    [[nodiscard]] DropResult result()
    {
        findFirstLine();
        return m_result;
    }

private:
    /// Among the tree's lines, not the files. A loose clip below brakes is none that plays: the
    /// packet's one media file would begin in its place.
    void findFirstLine()
    {
        const bool clipsAdded = m_packetsBefore >= 1 &&
                                !m_playlist.packet(m_packetsBefore).HasBrakes &&
                                m_playlist.packet(m_packetsBefore).ClipCount > m_clipsBefore;
        if (clipsAdded) {
            m_result.firstPacket = m_packetsBefore;
            m_result.firstClip = m_clipsBefore + 1;
            return;
        }
        for (Int16 p = m_packetsBefore + 1; p <= m_playlist.PlaylistCount; p += 1) {
            if (m_playlist.packet(p).ClipCount > 0) {
                m_result.firstPacket = p;
                m_result.firstClip = 1;
                return;
            }
        }
    }

    /// Stricter than opening a packet: an absent "files" is no number.
    void addPacket(const QString& file)
    {
        appendPacketRead(m_playlist, [&](PlaylistEntry& packet, qsizetype room) {
            const Int16 count = countValue(ReadIni(u"main"_s, u"files"_s, file));
            if (count < 0) {
                throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
            }
            readPacketInto(packet, file, room);
            m_room = room - packet.ClipCount.value();
        });
    }

    void addFolder(const QString& folder)
    {
        for (const QString& file : filesOfFolder(folder, m_typePattern)) {
            addClip(file);
        }
    }

    void addClip(const QString& file)
    {
        if (m_target < 1) {
            m_target = appendEmptyPacket(m_playlist);
        }
        if (m_room < 1) {
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
        appendClip(m_playlist, m_target, file, file);
        --m_room;
    }

    PlaylistState& m_playlist;
    QString m_typePattern;
    Int16 m_target; // packet for loose clips; 0 while there is none
    Int16 m_packetsBefore;
    qsizetype m_room;    // for entries that are still to come
    Int16 m_clipsBefore; // of the last packet
    DropResult m_result;
};

} // namespace

DropResult applyDrop(PlaylistState& playlist, const QStringList& files, const QString& typePattern)
{
    Drop drop(playlist, typePattern);
    std::for_each(files.crbegin(), files.crend(), [&](const QString& file) { drop.add(file); });
    return drop.result();
}

} // namespace orvanta
