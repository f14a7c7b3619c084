#include "core/document_saving.h"

#include "core/document_writer.h"
#include "core/group_file.h"
#include "core/ini_document.h"

#include <QFile>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// What the program writes of a section: keys and values, in order.
using Keys = std::vector<std::pair<QString, QString>>;

/// The numbered sections of one list: "brake1", "brake2", …
struct NumberedList
{
    QString word;
    std::vector<Keys> entries;
};

/// What an earlier document has beside the program's own keys.
class FormerKeys
{
public:
    explicit FormerKeys(const QString& file);

    /// The section of the earlier document that becomes this one; an empty name: none.
    void follow(const QString& section, const QString& former) { m_follows[section] = former; }
    /// Which sections of the earlier list the entries of the new one continue: that of the same
    /// content, otherwise that of the same number where it continues nothing else.
    void follow(const NumberedList& list);
    /// The keys that stand in the section from which this one comes, but the program's own.
    void writeTo(DocumentWriter& writer, const QString& section, const Keys& own);
    /// Whole sections that nothing has continued, but those of numbered lists.
    void writeRest(DocumentWriter& writer, const QStringList& listWords);

private:
    [[nodiscard]] QString contentOf(const QString& section, const Keys& like) const;

    QHash<QString, Keys> m_sections; // by lower-case name, keys as they stand there
    QStringList m_order;
    QHash<QString, QString> m_follows;
    QSet<QString> m_written;
};

} // namespace

static QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return !path.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

static bool hasKey(const Keys& keys, const QString& key)
{
    return std::any_of(keys.begin(), keys.end(), [&](const auto& pair) {
        return pair.first.compare(key, Qt::CaseInsensitive) == 0;
    });
}

FormerKeys::FormerKeys(const QString& file)
{
    for (const IniDocument::Line& line : IniDocument(bytesOf(file)).lines()) {
        const QString section = line.section.toLower();
        if (!m_sections.contains(section)) {
            m_order.append(section);
        }
        Keys& keys = m_sections[section];
        if (IniDocument::holdsKey(line.key) && !hasKey(keys, line.key)) {
            keys.emplace_back(line.key, line.value);
        }
    }
}

static QString numbered(const QString& word, std::size_t number)
{
    return word + QString::number(number);
}

static QString joined(const QStringList& values)
{
    return values.join(QChar(u'\0'));
}

QString FormerKeys::contentOf(const QString& section, const Keys& like) const
{
    const Keys keys = m_sections.value(section);
    QStringList values;
    for (const auto& wanted : like) {
        const auto found = std::find_if(keys.begin(), keys.end(), [&](const auto& pair) {
            return pair.first.compare(wanted.first, Qt::CaseInsensitive) == 0;
        });
        values.append(found == keys.end() ? QString() : asDocumentHolds(found->second));
    }
    return joined(values);
}

static QString contentOf(const Keys& keys)
{
    QStringList values;
    for (const auto& pair : keys) {
        values.append(pair.second);
    }
    return joined(values);
}

void FormerKeys::follow(const NumberedList& list)
{
    if (list.entries.empty()) {
        return;
    }
    QHash<QString, QStringList> byContent;
    for (const QString& section : std::as_const(m_order)) {
        if (section.startsWith(list.word)) {
            byContent[contentOf(section, list.entries.front())].append(section);
        }
    }
    QSet<QString> taken;
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        const QString section = numbered(list.word, i + 1);
        QStringList& same = byContent[orvanta::contentOf(list.entries[i])];
        follow(section, same.isEmpty() ? QString() : same.takeFirst());
        taken.insert(m_follows[section]);
    }
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        const QString section = numbered(list.word, i + 1);
        if (m_follows[section].isEmpty() && !taken.contains(section)) {
            follow(section, section);
        }
    }
}

void FormerKeys::writeTo(DocumentWriter& writer, const QString& section, const Keys& own)
{
    const QString former = m_follows.value(section, section);
    for (const auto& [key, value] : m_sections.value(former)) {
        if (!hasKey(own, key)) {
            writer.write(section, key, value);
        }
    }
    m_written.insert(former);
}

/// "file12" for the word "file".
static bool isNumbered(const QString& section, const QString& word)
{
    return section.size() > word.size() && section.startsWith(word) &&
           std::all_of(section.begin() + word.size(), section.end(),
                       [](QChar c) { return c >= u'0' && c <= u'9'; });
}

void FormerKeys::writeRest(DocumentWriter& writer, const QStringList& listWords)
{
    for (const QString& section : std::as_const(m_order)) {
        const bool isOfList =
            std::any_of(listWords.begin(), listWords.end(),
                        [&](const QString& word) { return isNumbered(section, word); });
        if (isOfList || m_written.contains(section)) {
            continue;
        }
        for (const auto& [key, value] : m_sections.value(section)) {
            writer.write(section, key, value);
        }
    }
}

/// A null value: the key is the program's own, and this document has none.
static void writeSection(DocumentWriter& writer, FormerKeys& former, const QString& section,
                         const Keys& keys)
{
    for (const auto& [key, value] : keys) {
        if (!value.isNull()) {
            writer.write(section, key, value);
        }
    }
    former.writeTo(writer, section, keys);
}

/// An empty text is written, too.
static QString present(const QString& value)
{
    return value.isNull() ? u""_s : value;
}

static void writeList(DocumentWriter& writer, FormerKeys& former, const NumberedList& list)
{
    former.follow(list);
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        writeSection(writer, former, numbered(list.word, i + 1), list.entries[i]);
    }
}

static QString sizeText(std::size_t count)
{
    return QString::number(Int16(static_cast<qint64>(count)).value());
}

static void writeClips(DocumentWriter& writer, FormerKeys& former, const PlaylistEntry& packet)
{
    writeSection(writer, former, u"main"_s,
                 {{u"files"_s, sizeText(packet.Clips.size())},
                  {u"file"_s, QString()},
                  {u"brakes"_s, QString()}});
    NumberedList list = {u"file"_s, {}};
    for (const ClipEntry& clip : packet.Clips) {
        list.entries.push_back({{u"path"_s, present(clip.Path)}, {u"text"_s, present(clip.Text)}});
    }
    writeList(writer, former, list);
}

static void writeBrakes(DocumentWriter& writer, FormerKeys& former, const PlaylistEntry& packet)
{
    writeSection(writer, former, u"main"_s,
                 {{u"files"_s, u"1"_s},
                  {u"file"_s, present(packet.MediaFile)},
                  {u"brakes"_s, sizeText(packet.Clips.size())}});
    writeSection(writer, former, u"file1"_s,
                 {{u"path"_s, present(packet.MediaFile)}, {u"text"_s, present(packet.MediaFile)}});
    NumberedList list = {u"brake"_s, {}};
    for (const ClipEntry& brake : packet.Clips) {
        list.entries.push_back(
            {{u"time"_s, present(brake.Time)}, {u"text"_s, present(brake.Text)}});
    }
    writeList(writer, former, list);
}

void savePacket(const PlaylistEntry& packet, const QString& target, const QString& former)
{
    FormerKeys others(former);
    DocumentWriter writer(target);
    if (packet.HasBrakes) {
        writeBrakes(writer, others, packet);
    } else {
        writeClips(writer, others, packet);
    }
    others.writeRest(writer, {u"file"_s, u"brake"_s});
    writer.finish();
}

void saveGroup(const std::vector<GroupMember>& members, const QString& target,
               const QString& former)
{
    FormerKeys others(former);
    DocumentWriter writer(target);
    writeSection(writer, others, u"main"_s, {{u"files"_s, sizeText(members.size())}});
    NumberedList list = {u"file"_s, {}};
    for (const GroupMember& member : members) {
        list.entries.push_back({{u"path"_s, present(member.path)},
                                {u"text"_s, present(member.text)},
                                {u"picture"_s, present(member.picture)}});
    }
    writeList(writer, others, list);
    others.writeRest(writer, {u"file"_s});
    writer.finish();
}

QString asDocumentHolds(const QString& text)
{
    IniDocument document;
    document.set(u"a"_s, u"b"_s, text);
    return document.value(u"a"_s, u"b"_s);
}

} // namespace orvanta
