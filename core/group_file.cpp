#include "core/group_file.h"

#include "core/document_writer.h"
#include "core/ini.h"
#include "core/numbers.h"
#include "core/packet_file.h"
#include "core/paths.h"

namespace orvanta {

using namespace Qt::StringLiterals;

static QString memberSection(int index)
{
    return u"file"_s + QString::number(index);
}

namespace {

/// Fields of one entry. Text and picture stay from the entry before when this one has none: that
/// is how groups have always been written.
struct MemberFields
{
    QString path;
    QString text;
    QString picture;

    void split(const QString& entry)
    {
        const QStringView marker(kEntryMarker);
        const qsizetype first = entry.indexOf(marker);
        if (first < 0) {
            return;
        }
        path = entry.left(first);
        splitRest(entry.mid(first + marker.size()));
    }

private:
    /// Behind the path: the last marker separates the picture; without one there is nothing new.
    void splitRest(const QString& rest)
    {
        const QStringView marker(kEntryMarker);
        const qsizetype last = rest.lastIndexOf(marker);
        if (last >= 0) {
            text = rest.left(last);
            picture = rest.mid(last + marker.size());
        }
    }
};

} // namespace

static int memberCount(const QString& text)
{
    const Int16 count = countValue(text);
    if (count < 0) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return count.value();
}

/// A relative text is meant below the group's folder.
static QString memberFile(const QString& pathText, const QString& group, const FindMember& find)
{
    QString found = find ? find(pathText) : QString();
    if (!found.isEmpty() || pathText.isEmpty()) {
        return found;
    }
    return isAbsolutePathText(pathText)
               ? pathText
               : folderOfPath(group) + QString(pathText).replace(u'\\', u'/');
}

void writeGroup(const QString& target, const QStringList& entries)
{
    DocumentWriter writer(target);
    writer.write(u"main"_s, u"files"_s, countText(entries));
    MemberFields fields;
    int index = 0;
    for (const QString& entry : entries) {
        fields.split(entry);
        const QString section = memberSection(++index);
        writer.write(section, u"path"_s, fields.path);
        writer.write(section, u"text"_s, fields.text);
        writer.write(section, u"picture"_s, fields.picture);
    }
    writer.finish();
}

void readGroupEntries(const QString& path, QStringList& entries)
{
    const IniSnapshot group(path);
    const int count = memberCount(group.read(u"main"_s, u"files"_s));
    for (int i = 1; i <= count; ++i) {
        entries.append(group.read(memberSection(i), u"path"_s) +
                       QStringView(kEntryMarker).toString() +
                       group.read(memberSection(i), u"text"_s));
    }
}

void readGroupInto(std::vector<PlaylistEntry>& packets, const QString& path, const FindMember& find,
                   qsizetype room)
{
    const IniSnapshot group(path);
    const int count = memberCount(group.read(u"main"_s, u"files"_s, u"0"_s));
    const std::size_t before = packets.size();
    packets.resize(before + static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        PlaylistEntry& packet = packets[before + static_cast<std::size_t>(i) - 1];
        packet.Title = group.read(memberSection(i), u"text"_s);
        packet.Picture = group.read(memberSection(i), u"picture"_s);
        packet.PictureFolder = folderOfPath(path);
        const QString member = group.read(memberSection(i), u"path"_s);
        readPacketInto(packet, memberFile(member, path, find), room);
        room -= packet.ClipCount.value();
        packet.Origin->member = member;
    }
}

} // namespace orvanta
