// The editing mode's menu of what is seldom needed: pictures, earlier versions.
#include "core/earlier_versions.h"
#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/paths.h"
#include "window/earlier_dialog.h"
#include "window/edit_notice.h"
#include "window/editing_mode.h"
#include "window/playlist_list.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

void EditingMode::fillMore()
{
    QMenu& menu = *m_ports.row.More;
    const auto add = [&](QStringView name, void (EditingMode::*handler)()) {
        QAction* entry = menu.addAction(text(name));
        connect(entry, &QAction::triggered, this,
                m_ports.boundary([this, handler](bool) { (this->*handler)(); }));
        return entry;
    };
    connect(menu.addAction(text(u"more.saveAs")), &QAction::triggered, this,
            m_ports.boundary([this](bool) { carryOut(Command::SaveAs); }));
    add(u"more.earlier", &EditingMode::takeEarlier);
    menu.addSeparator();
    fillSuggestions();
    menu.addSeparator();
    m_pictureEntries = {add(u"more.picture", &EditingMode::pickPicture),
                        add(u"more.frame", &EditingMode::takeFrame)};
    m_frameEntry = m_pictureEntries.back();
    connect(&menu, &QMenu::aboutToShow, this, [this] { showMore(); });
}

void EditingMode::fillSuggestions()
{
    QMenu& menu = *m_ports.row.More->addMenu(text(u"more.marks"));
    m_marksEntry = menu.menuAction();
    const auto add = [&](QStringView name, MarkSource source) {
        connect(menu.addAction(text(name)), &QAction::triggered, this,
                m_ports.boundary([this, source](bool) { m_sound->suggestFrom(source); }));
    };
    add(u"more.chapters", MarkSource::Chapters);
    add(u"more.subtitles", MarkSource::Subtitles);
    add(u"more.sentences", MarkSource::Sentences);
    connect(menu.addAction(text(u"more.silences")), &QAction::triggered, this,
            m_ports.boundary([this](bool) { m_sound->openSilences(); }));
}

/// Those without a text are numbered.
void EditingMode::setMarks(const std::vector<SuggestedMark>& found)
{
    const std::optional<MarkSetting> setting = markSetting();
    std::vector<NewMark> marks;
    for (const SuggestedMark& mark : found) {
        const auto number = static_cast<int>(marks.size()) + 1;
        marks.push_back(
            {mark.seconds, mark.text.isEmpty() ? text(u"mark.text").arg(number) : mark.text});
    }
    const int added = setting ? m_editing.addMarks(*setting, marks) : 0;
    m_ports.notice.say(added > 0 ? text(u"notice.marks").arg(added) : text(u"notice.noMarks"),
                       {{text(u"notice.close"), [] {}}});
}

void EditingMode::showMore()
{
    m_marksEntry->setEnabled(markSetting().has_value());
    const bool hasPicture = m_editing.hasTitles() && current().packet >= 1;
    for (QAction* entry : m_pictureEntries) {
        entry->setEnabled(hasPicture);
    }
    m_frameEntry->setEnabled(hasPicture && !m_ports.frame().isNull());
}

/// Beside its document a picture is named by its name alone, so that both can move.
void EditingMode::setPicture(int packet, const QString& path)
{
    const QString folder = m_ports.module.playlist.packet(Int16(packet)).PictureFolder;
    const bool isBeside = !folder.isEmpty() && folderOfPath(path) == folder;
    m_editing.setPicture(packet, isBeside ? fileNameOfPath(path) : path);
}

void EditingMode::pickPicture()
{
    if (m_ports.pickers.ShowOpenPicker(kPicturePattern.toString(), false)) {
        const QString path = m_ports.module.picker.PickedFiles.value(1);
        if (!path.isEmpty()) {
            setPicture(current().packet, path);
        }
    }
}

static QString unusedPicture(const QString& base)
{
    QString path = base + u".png"_s;
    for (int number = 2; QFileInfo::exists(path); ++number) {
        path = base + u' ' + QString::number(number) + u".png"_s;
    }
    return path;
}

/// Beside the document, which must have been saved once.
void EditingMode::takeFrame()
{
    const QString document = m_ports.module.playlist.Document;
    const QImage frame = m_ports.frame();
    if (frame.isNull() || (document.isEmpty() && !save(true))) {
        return;
    }
    const QString target = m_ports.module.playlist.Document;
    const QString path = unusedPicture(folderOfPath(target) + QFileInfo(target).completeBaseName() +
                                       u' ' + QString::number(current().packet));
    if (frame.save(path)) {
        setPicture(current().packet, path);
    } else {
        qCInfo(logErrors, "cannot write the picture %ls", qUtf16Printable(path));
        sayFailed(path);
    }
}

/// Of the document, and of the packet that the cursor is in.
static std::vector<VersionOfDocument> versionsOf(const PlaylistState& playlist, int packet)
{
    std::vector<VersionOfDocument> all;
    QStringList documents = {playlist.Document};
    if (packet >= 1 && playlist.packet(Int16(packet)).Origin) {
        documents.append(playlist.packet(Int16(packet)).Origin->file);
    }
    documents.removeAll(QString());
    documents.removeDuplicates();
    for (const QString& document : std::as_const(documents)) {
        for (const EarlierVersion& version : earlierVersions(document)) {
            all.push_back({document, version});
        }
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const auto& a, const auto& b) { return a.version.kept > b.version.kept; });
    return all;
}

/// Packets of a group go on being those that are open, so that only what differs is saved.
static void takeOrigins(std::vector<PlaylistEntry>& packets, const PlaylistState& playlist)
{
    for (PlaylistEntry& packet : packets) {
        const auto same = std::find_if(
            playlist.Playlist.begin(), playlist.Playlist.end(), [&](const PlaylistEntry& open) {
                return open.Origin && packet.Origin && open.Origin->file == packet.Origin->file;
            });
        if (same != playlist.Playlist.end()) {
            packet.Origin = same->Origin;
        }
    }
}

void EditingMode::takeEarlier()
{
    const PlaylistState& playlist = m_ports.module.playlist;
    EarlierDialog dialog(versionsOf(playlist, current().packet), m_ports.language,
                         m_ports.list.window());
    dialog.exec();
    const std::optional<VersionOfDocument> taken = dialog.taken();
    if (!taken) {
        return;
    }
    trapped("earlier version", [&] {
        std::vector<PlaylistEntry> packets = packetsOfVersion(*taken);
        if (isGroupPath(taken->document)) {
            takeOrigins(packets, playlist);
            m_editing.replaceAll(EditName::Version, packets);
            return;
        }
        const auto open = std::find_if(
            playlist.Playlist.begin(), playlist.Playlist.end(), [&](const PlaylistEntry& entry) {
                return entry.Origin && entry.Origin->file == taken->document;
            });
        if (open == playlist.Playlist.end()) {
            return;
        }
        PlaylistEntry& packet = packets.front();
        packet.Title = open->Title;
        packet.Picture = open->Picture;
        packet.PictureFolder = open->PictureFolder;
        packet.Origin = open->Origin;
        const auto number = static_cast<int>(open - playlist.Playlist.begin()) + 1;
        m_editing.replacePacket(EditName::Version, number, packet);
    });
}

} // namespace orvanta
