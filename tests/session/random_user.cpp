#include "tests/session/random_user.h"

#include "platform/process/hand_over_queue.h"
#include "playback/practice_controls.h"
#include "system/mpris_session.h"
#include "window/clip_line.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <array>
#include <gtest/gtest.h>

namespace orvanta::session {

using namespace Qt::StringLiterals;

struct RandomUser::Deed
{
    int weight;
    std::function<void(RandomUser&, ProgramRun&)> act;
};

const std::vector<RandomUser::Deed>& RandomUser::deeds()
{
    static const std::vector<Deed> kDeeds = {
        {20, &RandomUser::pressKeyInMainWindow},
        {14, &RandomUser::pressKeyInVideoWindow},
        {3, &RandomUser::typeIntoFindBox},
        {10, &RandomUser::clickButton},
        {6, &RandomUser::clickList},
        {8, &RandomUser::chooseLine},
        {6, &RandomUser::moveSlider},
        {3, &RandomUser::turnWheel},
        {3, &RandomUser::drop},
        {8, &RandomUser::useTray},
        {8, &RandomUser::callMediaControls},
        {3, &RandomUser::handOver},
        {4, &RandomUser::changeOption},
        {6, &RandomUser::practise},
        {4, &RandomUser::useVideoWindow},
        {4, &RandomUser::useMainWindow},
        {1, &RandomUser::useAbout},
        {30, &RandomUser::tick},
    };
    return kDeeds;
}

const std::vector<RandomUser::Deed>& RandomUser::deedsBesideDialog()
{
    static const std::vector<Deed> kDeeds = {
        {60, &RandomUser::useDialog},
        {4, &RandomUser::useTray},
        {6, &RandomUser::callMediaControls},
        {2, &RandomUser::handOver},
        {30, &RandomUser::tick},
    };
    return kDeeds;
}

RandomUser::RandomUser(Dice& dice, LaidOutFiles files, QDBusConnection bus)
    : m_dice(dice),
      m_files(std::move(files)),
      m_bus(std::move(bus))
{}

void RandomUser::act(ProgramRun& run, const std::function<QString(ProgramRun&, Dice&)>& passTime)
{
    ++m_number;
    // An open menu keeps the input to itself, and so does a dialog.
    if (QApplication::activePopupWidget() != nullptr && m_dice.chance(50)) {
        return usePopup(run);
    }
    const bool isDialogOpen = QApplication::activeModalWidget() != nullptr;
    doOneOf(isDialogOpen ? deedsBesideDialog() : deeds(), run, passTime);
}

void RandomUser::doOneOf(const std::vector<Deed>& deeds, ProgramRun& run,
                         const std::function<QString(ProgramRun&, Dice&)>& passTime)
{
    constexpr int kTimeWeight = 40;
    int sum = kTimeWeight;
    for (const Deed& deed : deeds) {
        sum += deed.weight;
    }
    int place = m_dice.below(sum) - kTimeWeight;
    if (place < 0) {
        return note(passTime(run, m_dice));
    }
    for (const Deed& deed : deeds) {
        place -= deed.weight;
        if (place < 0) {
            return deed.act(*this, run);
        }
    }
}

void RandomUser::note(const QString& what)
{
    constexpr std::size_t kKept = 60;
    m_journal.push_back(u"%1 %2"_s.arg(m_number).arg(what));
    if (m_journal.size() > kKept) {
        m_journal.pop_front();
    }
}

QString RandomUser::journal() const
{
    QString all;
    for (const QString& line : m_journal) {
        all += line + u'\n';
    }
    return all;
}

namespace {

struct KeyStroke
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

KeyStroke letter(char character)
{
    const QChar typed = QLatin1Char(character);
    return {static_cast<Qt::Key>(typed.toUpper().unicode()),
            typed.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, typed};
}

std::vector<KeyStroke> allStrokes()
{
    std::vector<KeyStroke> strokes;
    for (const char character : std::string_view("+-bfklmnprstBFKLMNPRST1xz")) {
        strokes.push_back(letter(character));
    }
    for (const Qt::Key key :
         {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End,
          Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F11, Qt::Key_Escape, Qt::Key_Backspace}) {
        strokes.push_back({key, Qt::NoModifier, {}});
    }
    strokes.push_back({Qt::Key_Space, Qt::NoModifier, u" "_s});
    strokes.push_back({Qt::Key_Return, Qt::NoModifier, u"\r"_s});
    strokes.push_back({Qt::Key_Tab, Qt::NoModifier, u"\t"_s});
    strokes.push_back({Qt::Key_Backtab, Qt::ShiftModifier, u"\t"_s});
    strokes.push_back({Qt::Key_O, Qt::ControlModifier, {}});
    strokes.push_back({Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier, {}});
    strokes.push_back({Qt::Key_F, Qt::ControlModifier, {}});
    strokes.push_back({Qt::Key_A, Qt::ControlModifier, {}});
    return strokes;
}

/// As the window system delivers it: to whatever has the focus in that window.
void sendStroke(QWindow* window, const KeyStroke& stroke)
{
    if (window != nullptr) {
        QTest::sendKeyEvent(QTest::Click, window, stroke.key, stroke.text, stroke.modifiers);
    }
}

QString nameOf(const KeyStroke& stroke)
{
    return QKeySequence(QKeyCombination(stroke.modifiers, stroke.key)).toString();
}

} // namespace

void RandomUser::pressKey(QWidget& window, const QString& name)
{
    if (QApplication::activePopupWidget() != nullptr) {
        return pressKeyInPopup();
    }
    static const std::vector<KeyStroke> kStrokes = allStrokes();
    constexpr int kQuitPerMille = 5;
    KeyStroke stroke = m_dice.oneOf(kStrokes);
    if (m_dice.below(1000) < kQuitPerMille) {
        stroke = {Qt::Key_Q, Qt::ControlModifier, {}};
    }
    note(u"key "_s + nameOf(stroke) + u" in the "_s + name);
    sendStroke(window.windowHandle(), stroke);
}

void RandomUser::pressKeyInMainWindow(ProgramRun& run)
{
    run.pickers.answer = someFiles(3);
    pressKey(run.program.mainWindow(), u"main window"_s);
}

void RandomUser::pressKeyInVideoWindow(ProgramRun& run)
{
    if (run.program.videoWindow().isVisible()) {
        pressKey(run.program.videoWindow(), u"video window"_s);
    }
}

// Return is not pressed: some entries start programs of the desktop.
void RandomUser::pressKeyInPopup()
{
    static const std::vector<KeyStroke> kStrokes = {
        {Qt::Key_Down, {}, {}}, {Qt::Key_Up, {}, {}}, {Qt::Key_Escape, {}, {}}};
    const KeyStroke& stroke = m_dice.oneOf(kStrokes);
    note(u"key "_s + nameOf(stroke) + u" in a menu"_s);
    sendStroke(QApplication::activePopupWidget()->windowHandle(), stroke);
}

void RandomUser::typeIntoFindBox(ProgramRun& run)
{
    static const QStringList kTexts = {u"clip"_s, u"brake"_s, u"zzz"_s, u"e"_s, QString()};
    const QString text = m_dice.oneOf(kTexts);
    note(u"find \"%1\""_s.arg(text));
    if (QApplication::activePopupWidget() != nullptr) {
        return; // which would take the letters
    }
    QLineEdit* box = run.program.mainWindow().Text1;
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
}

void RandomUser::clickButton(ProgramRun& run)
{
    const Form2& window = run.program.mainWindow();
    const std::array buttons = {window.Image8,  window.Image14, window.Image9, window.Image10,
                                window.Image11, window.Image12, window.Image5, window.Image3,
                                window.Image4,  window.Image2,  window.Image5, window.Image3,
                                window.Image4};
    constexpr int kClosePercent = 3;
    SkinButton* button = m_dice.chance(kClosePercent) ? window.Image13 : m_dice.oneOf(buttons);
    run.pickers.answer = someFiles(4);
    note(u"click "_s + button->objectName());
    QTest::mouseClick(button, Qt::LeftButton);
}

void RandomUser::clickList(ProgramRun& run)
{
    QWidget* list = run.program.mainWindow().List1->viewport();
    const QPoint place(m_dice.below(std::max(1, list->width())),
                       m_dice.below(std::max(1, list->height())));
    const bool twice = m_dice.chance(40);
    note(u"%1 the list at %2, %3"_s.arg(twice ? u"double click"_s : u"click"_s)
             .arg(place.x())
             .arg(place.y()));
    QTest::mouseMove(list, place);
    QTest::mouseClick(list, Qt::LeftButton, {}, place);
    if (twice) {
        QTest::mouseDClick(list, Qt::LeftButton, {}, place);
    }
}

void RandomUser::chooseLine(ProgramRun& run)
{
    PlaylistList* list = run.program.mainWindow().List1;
    const int count = static_cast<int>(list->lines().size());
    if (count == 0) {
        return note(u"no line to choose"_s);
    }
    const int row = m_dice.below(count);
    note(u"double click line %1"_s.arg(row));
    const QModelIndex line = list->model()->index(row, 0);
    list->scrollTo(line);
    const QPoint text = list->visualRect(line).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, text);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, text);
}

void RandomUser::moveSlider(ProgramRun& run)
{
    const Form2& window = run.program.mainWindow();
    SkinSlider* slider =
        m_dice.oneOf(std::array{window.Slider1, window.Slider1, window.Slider2, window.Slider3});
    const auto place = [&] {
        return QPoint(m_dice.below(std::max(1, slider->width())), slider->height() / 2);
    };
    note(u"move "_s + slider->objectName());
    QTest::mousePress(slider, Qt::LeftButton, {}, place());
    for (int i = m_dice.below(4); i > 0; --i) {
        QMouseEvent move(QEvent::MouseMove, place(), slider->mapToGlobal(place()), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(slider, &move);
    }
    QTest::mouseRelease(slider, Qt::LeftButton, {}, place());
}

void RandomUser::turnWheel(ProgramRun& run)
{
    const Form2& window = run.program.mainWindow();
    QWidget* widget = m_dice.oneOf(std::array<QWidget*, 4>{
        window.Slider1, window.Slider2, window.Slider3, window.List1->viewport()});
    note(u"wheel over "_s + widget->objectName());
    const QPointF centre = widget->rect().center();
    const int turn = m_dice.chance(50) ? 120 : -120;
    QWheelEvent event(centre, widget->mapToGlobal(centre), {}, QPoint(0, turn), {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

QString RandomUser::anyFile()
{
    const int kind = m_dice.below(100);
    if (kind < 60) {
        return m_dice.oneOf(m_files.clips);
    }
    if (kind < 80) {
        return m_dice.oneOf(m_files.packets);
    }
    return kind < 90 ? m_dice.oneOf(m_files.groups) : m_dice.oneOf(m_files.strange);
}

QStringList RandomUser::someFiles(int most)
{
    QStringList files;
    for (int i = m_dice.below(most + 1); i > 0; --i) {
        files.append(anyFile());
    }
    return files;
}

void RandomUser::drop(ProgramRun& run)
{
    QStringList files = someFiles(3) + QStringList(anyFile());
    if (m_dice.chance(2)) {
        files.append(m_dice.oneOf(m_files.badPackets));
        m_droppedBadPacket = true;
    }
    note(u"drop "_s + files.join(u' '));
    QMimeData data;
    QList<QUrl> addresses;
    for (const QString& file : files) {
        addresses.append(QUrl::fromLocalFile(file));
    }
    data.setUrls(addresses);
    QWidget* list = run.program.mainWindow().List1->viewport();
    const QPoint place = list->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(list, &enter);
    QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(list, &dropped);
}

void RandomUser::useTray(ProgramRun& run)
{
    constexpr int kExitPercent = 3;
    run.program.loadTrayWindow(); // a tray comes at any time
    if (run.program.trayWindow() == nullptr) {
        return note(u"no tray icon"_s);
    }
    Form12& tray = *run.program.trayWindow();
    if (m_dice.chance(20)) {
        note(u"left click on the tray icon"_s);
        Q_EMIT tray.IconTray1.activated(QSystemTrayIcon::Trigger);
        return;
    }
    const std::array entries = {tray.st, tray.pa, tray.pl, tray.nex, tray.pr};
    QAction* entry = m_dice.chance(kExitPercent) ? tray.closeapp : m_dice.oneOf(entries);
    note(u"tray entry "_s + entry->objectName());
    entry->trigger();
}

void RandomUser::callMediaControls(ProgramRun& run)
{
    const QString player = u"org.mpris.MediaPlayer2.Player"_s;
    const auto call = [&](const QString& interface, const QString& method,
                          const QVariantList& arguments) {
        note(u"media controls: "_s + method);
        QDBusMessage message = QDBusMessage::createMethodCall(
            u"org.mpris.MediaPlayer2.orvanta"_s, u"/org/mpris/MediaPlayer2"_s, interface, method);
        message.setArguments(arguments);
        m_bus.asyncCall(message); // served by the event loop that called this
    };
    const auto set = [&](const QString& interface, const QString& name, const QVariant& value) {
        call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
             {interface, name, QVariant::fromValue(QDBusVariant(value))});
    };
    static const QStringList kPlain = {u"Next"_s,      u"Previous"_s, u"Pause"_s,
                                       u"PlayPause"_s, u"Stop"_s,     u"Play"_s};
    const auto micro = [&](int seconds) {
        return QVariant::fromValue(qlonglong{seconds} * 1000000);
    };
    const auto current = [&] {
        const PlaylistState& playlist = run.module.playlist;
        const int clip = playlist.CurrentClip.value() + (m_dice.chance(50) ? 0 : 1);
        return QVariant::fromValue(QDBusObjectPath(trackPath(playlist.CurrentPacket, Int16(clip))));
    };
    switch (m_dice.below(12)) {
    case 0:
        return call(player, u"Seek"_s, {micro(m_dice.below(40) - 20)});
    case 1:
        return call(player, u"SetPosition"_s, {current(), micro(m_dice.below(12))});
    case 2:
        return call(player, u"OpenUri"_s,
                    {QUrl::fromLocalFile(anyFile()).toString(QUrl::FullyEncoded)});
    case 3:
        return set(player, u"Volume"_s, m_dice.below(11) / 10.0);
    case 4:
        return set(u"org.mpris.MediaPlayer2"_s, u"Fullscreen"_s, m_dice.chance(50));
    case 5:
        return call(u"org.mpris.MediaPlayer2.TrackList"_s, u"GoTo"_s, {current()});
    case 6:
        return call(u"org.mpris.MediaPlayer2"_s, m_dice.chance(5) ? u"Quit"_s : u"Raise"_s, {});
    case 7:
        return call(u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s, {player});
    default:
        return call(player, m_dice.oneOf(kPlain), {});
    }
}

void RandomUser::awaitMediaControls()
{
    const QDBusMessage last = QDBusMessage::createMethodCall(
        u"org.mpris.MediaPlayer2.orvanta"_s, u"/org/mpris/MediaPlayer2"_s,
        u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    const QDBusPendingCall answer = m_bus.asyncCall(last);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.isFinished(); }));
}

void RandomUser::handOver(ProgramRun& run)
{
    QStringList lines = someFiles(2) + QStringList(anyFile());
    for (QString& line : lines) {
        if (QFileInfo(line).isDir()) {
            line.prepend(u"/f"_s);
        }
    }
    note(u"hand over "_s + lines.join(u' '));
    HandOverQueue(run.module.IniPath).append(lines);
}

void RandomUser::changeOption(ProgramRun& run)
{
    static const QStringList kOptions = {u"as"_s,  u"agnc"_s, u"agnp"_s, u"ar"_s,
                                         u"acp"_s, u"nc"_s,   u"si"_s,   u"r"_s};
    const QString& option = m_dice.oneOf(kOptions);
    const QString value = m_dice.chance(70) ? u"1"_s : u"0"_s;
    note(u"option %1=%2"_s.arg(option, value));
    WriteIni(u"options"_s, option, value, run.module.IniPath);
}

void RandomUser::practise(ProgramRun& run)
{
    PlaybackEngine& engine = run.program.engine();
    switch (m_dice.below(6)) {
    case 0:
        note(u"next line"_s);
        return engine.lineStep(1);
    case 1:
        note(u"previous line"_s);
        return engine.lineStep(-1);
    case 2:
        note(u"this line again"_s);
        return engine.lineAgain();
    case 3:
        note(u"go on"_s);
        return engine.practice().goOn();
    default:
        static const std::vector<int> kWaits = {Practice::kWaitForSeconds, Practice::kWaitForKey,
                                                Practice::kNoWait, 50, 100};
        const Practice practice = {.speed = 50 + m_dice.below(150),
                                   .times = m_dice.below(4),
                                   .wait = m_dice.oneOf(kWaits),
                                   .seconds = 1,
                                   .from = 40 + m_dice.below(61),
                                   .step = m_dice.below(30),
                                   .mirror = m_dice.chance(30),
                                   .even = m_dice.chance(30)};
        note(u"practise: %1 %, %2 times, wait %3"_s.arg(practice.speed)
                 .arg(practice.times)
                 .arg(practice.wait));
        return engine.practice().set(practice);
    }
}

void RandomUser::tick(ProgramRun& run)
{
    note(u"tick"_s);
    run.program.engine().tick();
}

} // namespace orvanta::session
