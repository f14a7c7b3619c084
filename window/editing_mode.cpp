#include "window/editing_mode.h"

#include "playback/lesson_controls.h"
#include "window/edit_notice.h"
#include "window/playlist_list.h"

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

/// A change is on the disk within a second, also while more of them come.
constexpr int kDraftMilliseconds = 500;

constexpr double kSlightly = 0.1; // seconds
constexpr double kFarther = 1;    // seconds

EditingMode::EditingMode(EditingPorts ports, QObject* parent)
    : QObject(parent),
      m_ports(std::move(ports)),
      m_editing(m_ports.module.playlist),
      m_saving(m_ports.module.playlist),
      m_drafts(m_ports.module.ApplicationFolder),
      m_sound(new EditingSound(
          {m_ports.module.playlist, m_ports.engine, m_ports.strip, m_ports.silences}, this)),
      m_box(new LineEditor(&m_ports.list))
{
    m_draftTimer.setSingleShot(true);
    m_draftTimer.setInterval(kDraftMilliseconds);
    connect(&m_draftTimer, &QTimer::timeout, this, [this] { keepDraftOrSay(); });
    connect(&m_editing, &LessonEditing::edited, this,
            [this](const EditStep& step) { showStep(step); });
    connect(&m_editing, &LessonEditing::stateChanged, this, [this] { refresh(); });
    connect(&m_ports.engine.lesson(), &LessonControls::replacing, this,
            [this] { m_box->finish(); });
    connect(&m_ports.engine.lesson(), &LessonControls::left, this, [this] { noteLeaving(); });
    connect(&m_ports.engine, &PlaybackEngine::cursorChanged, this, [this] { refresh(); });
    connect(&m_ports.row, &EditingRow::asked, this,
            m_ports.boundary([this](Command command) { carryOut(command); }));
    connectList();
    fillMore();
    m_ports.row.hide();
}

void EditingMode::connectList()
{
    PlaylistList& list = m_ports.list;
    const auto on = [this](auto* sender, auto signal, auto handler) {
        connect(sender, signal, this, m_ports.boundary([handler](auto&&... arguments) {
            trapped("editing", [&] { handler(arguments...); });
        }));
    };
    on(&list, &PlaylistList::editingAsked, [this](Command command) { carryOut(command); });
    on(&list, &PlaylistList::linesDropped, [this](int before) { dropLines(before); });
    on(&list, &PlaylistList::filesDroppedBefore,
       [this](const QStringList& files, int before) { dropFiles(files, before); });
    on(&list, &PlaylistList::cursorMoved, [this](int) { refresh(); });
    on(&list, &PlaylistList::pictureAsked, [this](int) { pickPicture(); });
    on(m_box, &LineEditor::typed, [this](int line, LineEditor::Field field, const QString& text) {
        takeTyped(line, field, text);
    });
    on(m_box, &LineEditor::otherFieldAsked,
       [this](int, LineEditor::Field field) { editField(m_typedLine, field); });
    on(m_sound, &EditingSound::brakeChosen,
       [this](EditPlace brake) { m_ports.list.setCursorLine(lineOf(brake)); });
    on(m_sound, &EditingSound::brakeMoved,
       [this](EditPlace brake, double seconds) { m_editing.setTime(brake, seconds); });
    on(m_sound, &EditingSound::followed, [this] {
        if (m_on && markSetting().has_value() != m_canMark) {
            refresh(); // a clip has opened or closed, which moves no cursor
        }
    });
    on(m_sound, &EditingSound::marksFound,
       [this](const std::vector<SuggestedMark>& marks) { setMarks(marks); });
    on(m_box, &LineEditor::markAsked, [this] { carryOut(Command::Mark); });
}

void EditingMode::setOn(bool on)
{
    if (on == m_on || (on && m_ports.module.playlist.PlaylistCount == 0)) {
        return;
    }
    if (!on) {
        m_box->finish();
        keepDraft();
    } else if (!std::exchange(m_isFollowed, true)) {
        m_saving.begin();
    }
    m_on = on;
    m_ports.list.setEditing(on ? [this](int line) { return noteOf(line); } : LineNotes());
    m_ports.row.setVisible(on);
    m_sound->setOn(on);
    if (!on && m_editing.isChanged()) {
        sayUnsaved();
    }
    refresh();
    Q_EMIT switched(on);
}

bool EditingMode::carryOut(Command command)
{
    if (command == Command::EditMode) {
        setOn(!m_on);
        return true;
    }
    if (!m_on) {
        return false;
    }
    bool isEditing = true;
    trapped("command of editing", [&] { isEditing = carryOutWhileOn(command); });
    return isEditing;
}

bool EditingMode::carryOutWhileOn(Command command)
{
    if (command != Command::EditText) {
        m_box->finish();
    }
    switch (command) {
    case Command::Mark:
        mark();
        break;
    case Command::EditText:
        editField(m_ports.list.cursorLine(), LineEditor::Field::Text);
        break;
    case Command::EarlierSlightly:
        nudge(-kSlightly);
        break;
    case Command::LaterSlightly:
        nudge(kSlightly);
        break;
    case Command::Earlier:
        nudge(-kFarther);
        break;
    case Command::Later:
        nudge(kFarther);
        break;
    case Command::RemoveLines:
        m_editing.remove(selected());
        break;
    case Command::LinesUp:
        m_editing.moveBy(selected(), -1);
        break;
    case Command::LinesDown:
        m_editing.moveBy(selected(), 1);
        break;
    case Command::Undo:
        m_editing.undo();
        break;
    case Command::Redo:
        m_editing.redo();
        break;
    case Command::Save:
        save(false);
        break;
    case Command::SaveAs:
        save(true);
        break;
    default:
        return false;
    }
    return true;
}

void EditingMode::addFacts(CommandFacts& facts) const
{
    facts.editing = m_on;
    if (!m_on) {
        return;
    }
    const PlaylistState& playlist = m_ports.module.playlist;
    const EditPlace place = current();
    facts.canMark = markSetting().has_value();
    facts.lineHasText = place.line >= 1 || (place.packet >= 1 && m_editing.hasTitles());
    facts.lineIsBrake = place.line >= 1 && playlist.packet(place.packet).HasBrakes;
    facts.canUndo = m_editing.canUndo();
    facts.canRedo = m_editing.canRedo();
    facts.changed = m_editing.isChanged();
}

static QString nameOfStep(EditName name)
{
    switch (name) {
    case EditName::Mark:
        return u"step.Mark"_s;
    case EditName::Text:
        return u"step.Text"_s;
    case EditName::Time:
        return u"step.Time"_s;
    case EditName::Title:
        return u"step.Title"_s;
    case EditName::Picture:
        return u"step.Picture"_s;
    case EditName::Remove:
        return u"step.Remove"_s;
    case EditName::Move:
        return u"step.Move"_s;
    case EditName::Insert:
        return u"step.Insert"_s;
    case EditName::Suggest:
        return u"step.Suggest"_s;
    case EditName::Version:
        return u"step.Version"_s;
    case EditName::Discard:
        return u"step.Discard"_s;
    }
    return {};
}

void EditingMode::refresh()
{
    if (!m_on) {
        m_ports.showTitle({});
        return;
    }
    const QString name = nameOf(m_ports.module.playlist.Document);
    m_ports.showTitle(m_editing.isChanged() ? text(u"title.changed").arg(name) : name);
    m_canMark = markSetting().has_value();
    EditingState state = {.canMark = m_canMark,
                          .hasLine = current().packet >= 1,
                          .changed = m_editing.isChanged(),
                          .undo = {},
                          .redo = {}};
    if (m_editing.canUndo()) {
        state.undo = text(nameOfStep(m_editing.undoName()));
    }
    if (m_editing.canRedo()) {
        state.redo = text(nameOfStep(m_editing.redoName()));
    }
    m_ports.row.setState(state);
    m_sound->refresh(current());
}

} // namespace orvanta
