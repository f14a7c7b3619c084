// The editing mode's part in documents: saving, drafts, what is said about changes.
#include "core/paths.h"
#include "window/edit_notice.h"
#include "window/editing_mode.h"

#include <QFileInfo>
#include <QLocale>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

QString EditingMode::text(QStringView name) const
{
    return interfaceText(u"EditingMode", name, m_ports.language);
}

QString EditingMode::nameOf(const QString& document) const
{
    return document.isEmpty() ? text(u"no.name") : fileNameOfPath(document);
}

/// Nothing holds the changes by then but the program itself.
void EditingMode::keepDraftOrSay()
{
    keepDraft();
    if (m_draftIsDue) {
        m_ports.notice.say(
            text(u"notice.noDraft").arg(nameOf(m_ports.module.playlist.Document)),
            {{text(u"notice.save"), [this] { save(false); }}, {text(u"notice.close"), [] {}}});
    }
}

/// One that cannot be kept is due again with the next change, and at the end. One that was offered
/// and not taken stays as long as nothing is changed.
void EditingMode::keepDraft()
{
    m_draftTimer.stop();
    if (!std::exchange(m_draftIsDue, false)) {
        return;
    }
    if (m_editing.isChanged()) {
        m_draftIsDue = !m_drafts.keep(m_ports.module.playlist, m_saving.saved());
        m_hasDraftFailed = m_draftIsDue;
    } else {
        m_drafts.discard(m_ports.module.playlist.Document);
    }
}

void EditingMode::keepDraftSoon()
{
    if (std::exchange(m_hasOldDraft, false)) {
        m_drafts.setAside(m_ports.module.playlist.Document);
    }
    m_draftIsDue = true;
    if (!m_draftTimer.isActive()) {
        m_draftTimer.start();
    }
}

void EditingMode::end()
{
    m_box->finish();
    keepDraft();
}

/// Empty when nothing was chosen.
QString EditingMode::askTarget()
{
    const PlaylistState& playlist = m_ports.module.playlist;
    const bool asPacket = m_saving.fitsPacket() && !isGroupPath(playlist.Document);
    m_ports.pickers.ShowSavePicker(asPacket ? u"*.vxl"_s : u"*.vxg"_s,
                                   QFileInfo(playlist.Document).completeBaseName());
    return m_ports.module.picker.SaveFileName;
}

bool EditingMode::save(bool elsewhere)
{
    m_box->finish();
    const QString document = m_ports.module.playlist.Document;
    const bool asks = elsewhere || m_saving.needsTarget();
    const QString target = asks ? askTarget() : document;
    if (target.isEmpty()) {
        return false;
    }
    const bool saved = resumeNext("saving what was edited", [&] { m_saving.save(target); });
    if (!saved) {
        m_draftIsDue = true;
        keepDraft();
        sayFailed(target);
        return false;
    }
    m_draftIsDue = false;
    if (!m_hasOldDraft) {
        m_drafts.discard(document);
    }
    if (target != document) {
        m_hasOldDraft = m_drafts.of(target).has_value();
        m_editing.begin(); // paths may be others now: there is no way back over that
    }
    m_editing.noteSaved();
    m_ports.notice.clear();
    return true;
}

void EditingMode::sayFailed(const QString& document)
{
    const QString said = text(m_hasDraftFailed ? u"notice.failedAtAll" : u"notice.failed");
    m_ports.notice.say(said.arg(nameOf(document)), {{text(u"notice.close"), [] {}}});
}

/// As it was saved last; that itself can be undone. Where no file was ever read, only the draft
/// goes.
void EditingMode::discard()
{
    const std::vector<PlaylistEntry> saved = m_saving.saved();
    if (!m_editing.isChanged()) {
        return;
    }
    if (m_editing.replaceAll(EditName::Discard, saved)) {
        m_editing.noteSaved();
    }
    m_draftIsDue = false;
    m_drafts.discard(m_ports.module.playlist.Document);
}

QString EditingMode::unsavedText(const QString& document) const
{
    return text(m_hasDraftFailed ? u"notice.unsavedAtAll" : u"notice.unsaved")
        .arg(nameOf(document));
}

void EditingMode::sayUnsaved()
{
    m_ports.notice.say(unsavedText(m_ports.module.playlist.Document),
                       {{text(u"notice.save"), [this] { save(false); }},
                        {text(u"notice.discard"), [this] { discard(); }}});
}

/// The last look at what is open before something else may be.
void EditingMode::noteLeaving()
{
    if (m_ports.module.playlist.revision != m_revision) {
        return; // something else is there already
    }
    m_leaving.reset();
    if (m_editing.isChanged()) {
        keepDraft();
        m_leaving = std::make_shared<Left>(Left{m_ports.module.playlist, m_saving.saved()});
    }
}

void EditingMode::sayLeft()
{
    const std::shared_ptr<Left> left = m_left;
    const QString document = left->playlist.Document;
    const auto discardLeft = [this, document] {
        m_left.reset();
        m_drafts.discard(document);
        offerDraftOfDocument();
    };
    m_ports.notice.say(unsavedText(document),
                       {{text(u"notice.save"), [this, left] { saveLeft(left); }},
                        {text(u"notice.discard"), discardLeft}});
}

void EditingMode::saveLeft(const std::shared_ptr<Left>& left)
{
    const QString document = left->playlist.Document;
    LessonSaving saving(left->playlist, left->saved);
    QString target = document;
    if (saving.needsTarget()) {
        m_ports.pickers.ShowSavePicker(saving.fitsPacket() ? u"*.vxl"_s : u"*.vxg"_s,
                                       QFileInfo(document).completeBaseName());
        target = m_ports.module.picker.SaveFileName;
    }
    if (target.isEmpty()) {
        return sayLeft();
    }
    m_left.reset();
    if (resumeNext("saving what was left", [&] { saving.save(target); })) {
        m_drafts.discard(document);
        offerDraftOfDocument();
    } else {
        sayFailed(target);
    }
}

void EditingMode::playlistShown()
{
    m_box->giveUp();
    if (m_leaving && m_editing.isChanged()) {
        m_left = std::move(m_leaving);
    }
    m_leaving.reset();
    m_draftTimer.stop();
    m_draftIsDue = false;
    m_editing.begin();
    m_ports.notice.clear();
    if (m_ports.module.playlist.PlaylistCount == 0) {
        setOn(false);
    }
    m_revision = m_ports.module.playlist.revision;
    m_isFollowed = m_on;
    if (m_on) {
        m_saving.begin();
    } else {
        m_saving.forget();
    }
    const QString& document = m_ports.module.playlist.Document;
    m_drafts.discardWhatIsSaved(m_ports.module.playlist);
    m_hasOldDraft = m_drafts.of(document).has_value();
    if (m_left && m_hasOldDraft && m_left->playlist.Document == document && !document.isEmpty()) {
        m_left.reset(); // it has come back: saved now, it would not be what is open
    }
    if (m_left) {
        sayLeft();
    } else {
        offerDraftOfDocument();
    }
}

/// Changes that are not saved are of what is open, still.
void EditingMode::playlistGrown()
{
    if (!m_editing.isChanged()) {
        return playlistShown();
    }
    m_leaving.reset();
    m_editing.noteDraftTaken();
    m_revision = m_ports.module.playlist.revision;
    keepDraftSoon();
}

static QString momentText(const QDateTime& moment)
{
    const QLocale locale;
    return moment.date() == QDate::currentDate()
               ? locale.toString(moment.time(), u"H:mm"_s)
               : locale.toString(moment.date(), QLocale::ShortFormat) +
                     locale.toString(moment.time(), u" H:mm"_s);
}

void EditingMode::offerDraftOfDocument()
{
    const QString document = m_ports.module.playlist.Document;
    const auto draft = document.isEmpty() ? std::nullopt : m_drafts.of(document);
    if (draft) {
        m_ports.notice.say(text(u"notice.draft").arg(momentText(draft->kept)),
                           {{text(u"notice.take"), [this, document] { takeDraft(document); }},
                            {text(u"notice.leave"), [] {}}});
    }
}

void EditingMode::offerDrafts()
{
    const std::vector<DraftInfo> drafts = m_drafts.all();
    if (drafts.empty() || m_ports.module.playlist.PlaylistCount > 0) {
        return;
    }
    const DraftInfo& newest = drafts.front();
    m_ports.notice.say(
        text(u"notice.start").arg(nameOf(newest.document), momentText(newest.kept)),
        {{text(u"notice.take"), [this, document = newest.document] { openDraft(document); }},
         {text(u"notice.leave"), [] {}}});
}

/// The document first, so that what is not in the draft comes from it.
void EditingMode::openDraft(const QString& document)
{
    if (!document.isEmpty() && QFileInfo(document).isFile()) {
        m_ports.openDocument(document);
        m_ports.notice.clear();
    }
    takeDraft(document);
}

void EditingMode::takeDraft(const QString& document)
{
    PlaylistState& playlist = m_ports.module.playlist;
    const auto packets = m_drafts.packets(document, playlist);
    if (!packets || packets->empty()) {
        return;
    }
    m_drafts.takeUp(document);
    if (playlist.PlaylistCount == 0) { // its document is gone, or it never had one
        playlist.Playlist = *packets;
        playlist.PlaylistCount = Int16(static_cast<qint64>(packets->size()));
        playlist.Document = document;
        ++playlist.revision;
        m_ports.engine.playlistReplaced();
        setOn(true);
        m_saving.forget();
        m_editing.noteDraftTaken();
        m_ports.notice.clear();
        m_hasOldDraft = false;
        return;
    }
    setOn(true);
    m_hasOldDraft = false;
    m_editing.replaceAll(EditName::Version, *packets);
}

} // namespace orvanta
