#include "model/lesson_check.h"

#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/ini.h"
#include "core/numbers.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "model/editing/lesson_saving.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

class DocumentCheck
{
public:
    explicit DocumentCheck(const CheckWishes& wishes)
        : m_wishes(wishes)
    {}

    void check(const QString& fileOrFolder);
    [[nodiscard]] std::vector<CheckedDocument> take() { return std::move(m_checked); }

private:
    void checkFolder(const QString& folder);
    void checkFile(const QString& file, const QString& groupFolder = {});
    void checkGroup(CheckedDocument& group);
    void checkPacket(CheckedDocument& packet, const QString& groupFolder);
    void checkMembers(const CheckedDocument& group);
    [[nodiscard]] CheckedText look(CheckedPart part, std::size_t index, const QString& text,
                                   const LessonFolders& folders) const;
    [[nodiscard]] bool changes() const { return m_wishes.fixes || m_wishes.makesRelative; }
    /// The text that the document is to have. Sets isChanged when it is another one.
    [[nodiscard]] QString textFor(const CheckedText& checked, const QString& folder,
                                  bool& isChanged) const;

    CheckWishes m_wishes;
    QSet<QString> m_seen; // canonical paths
    std::vector<CheckedDocument> m_checked;
};

} // namespace

static bool isPacketPath(const QString& path)
{
    return path.endsWith(u".vxl"_s, Qt::CaseInsensitive);
}

/// A text file of any kind may have the name of a packet.
static bool holdsList(const QString& file)
{
    const IniSnapshot document(file);
    return !document.read(u"main"_s, u"files"_s).isEmpty() ||
           !document.read(u"main"_s, u"brakes"_s).isEmpty();
}

static QStringList documentsBelow(const QString& folder)
{
    QStringList files;
    QDirIterator all(folder, {u"*.vxl"_s, u"*.vxg"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        files.append(all.next());
    }
    // Groups first: where their packets lie helps to find what these name.
    std::sort(files.begin(), files.end(), [](const QString& one, const QString& other) {
        return std::pair(!isGroupPath(one), one) < std::pair(!isGroupPath(other), other);
    });
    return files;
}

void DocumentCheck::check(const QString& fileOrFolder)
{
    const QFileInfo what(fileOrFolder);
    if (what.isDir()) {
        checkFolder(what.absoluteFilePath());
    } else {
        checkFile(QDir::cleanPath(what.absoluteFilePath()));
    }
}

void DocumentCheck::checkFolder(const QString& folder)
{
    const QStringList documents = documentsBelow(folder);
    if (documents.isEmpty()) {
        m_checked.push_back({.document = folder, .result = CheckResult::NoDocument, .texts = {}});
    }
    for (const QString& document : documents) {
        checkFile(document);
    }
}

static CheckResult resultBeforeReading(const QString& file)
{
    const QFileInfo info(file);
    if (!isPacketPath(file) && !isGroupPath(file)) {
        return info.exists() ? CheckResult::NoDocument : CheckResult::NotChecked;
    }
    if (!info.isFile() || !info.isReadable()) {
        return CheckResult::NotChecked;
    }
    return holdsList(file) ? CheckResult::AllFound : CheckResult::NoDocument;
}

bool isLessonDocument(const QString& file)
{
    return resultBeforeReading(file) == CheckResult::AllFound;
}

static void noteMissing(CheckedDocument& document)
{
    const bool isMissing =
        std::any_of(document.texts.begin(), document.texts.end(),
                    [](const CheckedText& checked) { return checked.found.file.isEmpty(); });
    if (isMissing && document.result == CheckResult::AllFound) {
        document.result = CheckResult::SomeMissing;
    }
}

void DocumentCheck::checkFile(const QString& file, const QString& groupFolder)
{
    const QString canonical = QFileInfo(file).canonicalFilePath();
    if (m_seen.contains(canonical)) {
        return;
    }
    if (!canonical.isEmpty()) {
        m_seen.insert(canonical);
    }
    CheckedDocument document = {.document = file, .result = resultBeforeReading(file), .texts = {}};
    if (document.result == CheckResult::AllFound) {
        const bool isRead = resumeNext("check of a document", [&] {
            isGroupPath(file) ? checkGroup(document) : checkPacket(document, groupFolder);
        });
        document.result = isRead ? document.result : CheckResult::NotChecked;
        noteMissing(document);
    }
    m_checked.push_back(document);
    checkMembers(document);
}

CheckedText DocumentCheck::look(CheckedPart part, std::size_t index, const QString& text,
                                const LessonFolders& folders) const
{
    CheckedText checked = {part, static_cast<int>(index) + 1, text,
                           findMediaFile(text, folders, SearchDepth::Patient)};
    if (!checked.found.file.isEmpty() && !QFileInfo(checked.found.file).isReadable()) {
        checked.found = {{}, Finding::Refused};
    }
    return checked;
}

/// Empty when a document could not say it so that it means the file.
QString relativePathText(const QString& folder, const QString& file)
{
    const QString relative = QDir(folder).relativeFilePath(file);
    const bool isBelow = !relative.startsWith(u"../"_s) && !relative.startsWith(u'/');
    const bool means = isBelow && asDocumentHolds(relative) == relative &&
                       locateFile(relative, folder) == QDir(folder).absoluteFilePath(relative);
    return means ? relative : QString();
}

QString DocumentCheck::textFor(const CheckedText& checked, const QString& folder,
                               bool& isChanged) const
{
    const QString& file = checked.found.file;
    if (file.isEmpty()) {
        return checked.text;
    }
    QString better;
    if (m_wishes.makesRelative && isAbsolutePathText(checked.text)) {
        better = relativePathText(folder, file);
    }
    if (better.isEmpty() && checked.found.finding == Finding::Elsewhere) {
        better = m_wishes.makesRelative ? relativePathText(folder, file) : QString();
        better = better.isEmpty() && asDocumentHolds(file) == file ? file : better;
    }
    if (better.isEmpty() || better == checked.text) {
        return checked.text;
    }
    isChanged = true;
    return better;
}

void DocumentCheck::checkPacket(CheckedDocument& packet, const QString& groupFolder)
{
    PlaylistEntry entry;
    readPacketInto(entry, packet.document);
    const LessonFolders folders = {folderOfPath(packet.document), groupFolder};
    std::vector<QString*> paths;
    if (entry.HasBrakes) {
        paths.push_back(&entry.MediaFile);
    } else {
        for (ClipEntry& clip : entry.Clips) {
            paths.push_back(&clip.Path);
        }
    }
    bool isChanged = false;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        packet.texts.push_back(look(CheckedPart::Clip, i, *paths[i], folders));
        if (changes()) {
            *paths[i] = textFor(packet.texts.back(), folders.packet, isChanged);
        }
    }
    if (isChanged) {
        savePacket(entry, packet.document, packet.document);
        packet.isWritten = true;
    }
}

std::vector<GroupMember> groupMembers(const QString& file)
{
    const IniSnapshot group(file);
    const int count = countValue(group.read(u"main"_s, u"files"_s, u"0"_s)).value();
    std::vector<GroupMember> members;
    for (int i = 1; i <= count; ++i) {
        const QString section = u"file"_s + QString::number(i);
        members.push_back({group.read(section, u"path"_s), group.read(section, u"text"_s),
                           group.read(section, u"picture"_s)});
    }
    return members;
}

void DocumentCheck::checkGroup(CheckedDocument& group)
{
    std::vector<GroupMember> members = groupMembers(group.document);
    const LessonFolders folders = {.packet = folderOfPath(group.document)};
    bool isChanged = false;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const auto checkText = [&](CheckedPart part, QString& text) {
            group.texts.push_back(look(part, i, text, folders));
            if (changes()) {
                text = textFor(group.texts.back(), folders.packet, isChanged);
            }
        };
        checkText(CheckedPart::Packet, members[i].path);
        if (!members[i].picture.isEmpty() && members[i].picture != kNoPicture) {
            checkText(CheckedPart::Picture, members[i].picture);
        }
    }
    if (isChanged) {
        saveGroup(members, group.document, group.document);
        group.isWritten = true;
    }
}

void DocumentCheck::checkMembers(const CheckedDocument& group)
{
    for (const CheckedText& member : group.texts) {
        if (member.part == CheckedPart::Packet && !member.found.file.isEmpty()) {
            checkFile(member.found.file, folderOfPath(group.document));
        }
    }
}

std::vector<CheckedDocument> checkDocuments(const QStringList& filesAndFolders,
                                            const CheckWishes& wishes)
{
    beginSearches();
    DocumentCheck check(wishes);
    for (const QString& what : filesAndFolders) {
        check.check(what);
    }
    return check.take();
}

CheckResult worstOf(const std::vector<CheckedDocument>& documents)
{
    const auto worst = std::max_element(
        documents.begin(), documents.end(),
        [](const auto& one, const auto& other) { return one.result < other.result; });
    return worst == documents.end() ? CheckResult::NoDocument : worst->result;
}

} // namespace orvanta
