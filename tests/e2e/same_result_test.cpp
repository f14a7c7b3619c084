// What a person asks for comes out the same, by whichever way it is asked for: each way is tried on
// a fresh start of the same lesson.

#include "tests/e2e/support/steered.h"

#include <functional>
#include <ostream>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

namespace {

const QString kMain = u"!Orvanta!"_s;
const QString kVideo = u"video200"_s;

/// Where the lines of the lesson begin, and where the test stands in the second; seconds.
constexpr std::array kLines = {10.0, 40.0, 70.0, 100.0, 190.0};
constexpr double kStand = 55;
constexpr double kBusy = 14; // so far a busy machine may have played on when it is looked at

/// What a request leaves behind.
struct Outcome
{
    QStringList log = {};  // what playback has said since
    QString practice = {}; // the settings of it that are there: "speed=95 text=1"
    QString status = u"Playing"_s;
    double from = kStand; // where it plays from, seconds
    QString title = u"Two"_s;
    double rate = 1;
    QString loop = u"None"_s;

    friend bool operator==(const Outcome&, const Outcome&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
    {
        return out << "log [" << outcome.log.join(u", ").toStdString() << "], practice ["
                   << outcome.practice.toStdString() << "], " << outcome.status.toStdString()
                   << " from " << outcome.from << " s, " << outcome.title.toStdString() << ", rate "
                   << outcome.rate << ", loop " << outcome.loop.toStdString();
    }
};

/// One start of the program with the lesson.
class Lesson
{
public:
    Lesson(Desktop& desktop, const QList<std::pair<QString, QString>>& practice)
        : m_desktop(desktop),
          m_program(desktop, m_home),
          m_controls(desktop)
    {
        for (const auto& [key, value] : practice) {
            m_home.set(u"practice"_s, key, value);
        }
    }

    /// Until it plays in the middle of the second line.
    [[nodiscard]] bool begin(const QString& packet)
    {
        m_desktop.moveMouse({1, 1});
        const bool plays =
            m_program.startAndShow({packet}) && m_program.next(u"^orvanta.playback: start"_s) &&
            waitFor([this] {
                return m_controls.status() == u"Playing" && !m_desktop.placeOf(kVideo).isEmpty();
            });
        m_controls.seekTo(kStand);
        m_saidBefore = said().size();
        return plays && waitFor([this] { return outcome().from == kStand; }) &&
               waitFor([this] { return m_controls.title() == u"Two"; });
    }

    [[nodiscard]] Outcome outcome()
    {
        Outcome now;
        now.log = said().mid(m_saidBefore);
        now.practice = practice();
        now.status = m_controls.status();
        now.from = whereFrom(m_controls.seconds());
        now.title = m_controls.title();
        now.rate = m_controls.rate();
        now.loop = m_controls.loop();
        return now;
    }

    /// Nothing more comes of it while the lesson plays on for several ticks.
    void playOn()
    {
        m_controls.call(u"Play"_s);
        const double from = m_controls.seconds();
        EXPECT_TRUE(waitFor([&] { return m_controls.seconds() > from + 0.8; }));
    }

    void press(const QString& window, const QString& key)
    {
        EXPECT_TRUE(m_desktop.activate(window));
        m_desktop.press(key);
    }

    /// Of the playlist or of the picture, by access keys: a submenu's first.
    void chooseInMenu(const QString& window, const QStringList& keys)
    {
        EXPECT_TRUE(m_desktop.activate(window));
        const QPoint place =
            window == kMain ? this->window().listCentre() : m_desktop.placeOf(kVideo).center();
        m_desktop.moveMouse(place);
        m_desktop.run(u"xdotool"_s, {u"click"_s, u"3"_s});
        EXPECT_TRUE(menusBecome(1));
        for (int i = 0; i < keys.size(); ++i) {
            EXPECT_TRUE(pressUntilMenus(keys[i], i + 1 == keys.size() ? 0 : i + 2));
        }
    }

    void pressInBar(const QString& name)
    {
        ASSERT_TRUE(m_desktop.resizeWindow(kVideo, {640, 480}));
        EXPECT_TRUE(waitFor([&] { return m_desktop.placeOf(kVideo).size() == QSize(640, 480); }));
        EXPECT_TRUE(m_desktop.activate(kVideo));
        const QRect picture = m_desktop.placeOf(kVideo);
        const QRect button = placeOf(kButtons, name, picture, [&] {
            m_desktop.moveMouse(picture.center() + QPoint(20, 20));
            m_desktop.moveMouse(picture.center());
        });
        ASSERT_FALSE(button.isEmpty());
        m_desktop.click(button.center());
    }

    /// Keys for the panel of practice, whose first box has the keyboard.
    void pressInPanel(const QStringList& keys)
    {
        pressButton(u"Practice"_s);
        // The name of a box itself is what it has chosen.
        EXPECT_FALSE(placeOf({u"label"_s}, u"Speed"_s, m_desktop.placeOf(kMain)).isEmpty());
        for (const QString& key : keys) {
            m_desktop.press(key);
        }
    }

    /// A button, switch or chip of the main window.
    void pressButton(const QString& name)
    {
        EXPECT_TRUE(m_desktop.activate(kMain));
        const QRect place = placeOf(kButtons, name, m_desktop.placeOf(kMain));
        ASSERT_FALSE(place.isEmpty());
        m_desktop.click(place.center());
    }

    /// At the lower edge of the panel.
    void pressBackToNormal()
    {
        pressInPanel({});
        pressButton(u"Back to normal"_s);
    }

    MprisClient& controls() { return m_controls; }

private:
    /// Without what the player library says of itself.
    [[nodiscard]] QStringList said()
    {
        QStringList lines =
            m_program.linesMatching(u"^orvanta.playback: (start|again|waiting|ended|stopped)"_s);
        return lines.replaceInStrings(u"orvanta.playback: "_s, QString());
    }

    [[nodiscard]] QString practice() const
    {
        QStringList all;
        for (const QString& key : {u"speed"_s, u"repeat"_s, u"wait"_s, u"seconds"_s, u"from"_s,
                                   u"step"_s, u"mirror"_s, u"even"_s, u"text"_s}) {
            const QString value = m_home.get(u"practice"_s, key);
            all += value.isEmpty() ? QStringList() : QStringList(key + u'=' + value);
        }
        return all.join(u' ');
    }

    /// The beginning behind which the position lies; the position itself where there is none.
    static double whereFrom(double seconds)
    {
        double from = seconds;
        for (const double begin : {kLines[0], kLines[1], kStand, kLines[2]}) {
            from = seconds >= begin - 0.05 && seconds < begin + kBusy ? begin : from;
        }
        return from;
    }

    /// Where a control of one of these roles shows inside a window; waits until it does.
    QRect placeOf(
        const QStringList& roles, const QString& name, const QRect& window,
        const std::function<void()>& eachTime = [] {})
    {
        QRect place;
        EXPECT_TRUE(waitFor([&] {
            eachTime();
            const auto top = m_accessibility.program(m_program.pid());
            const auto found = top ? top->find([&](const Accessible& each) {
                return each.name() == name && roles.contains(each.role()) && each.isShowing() &&
                       window.contains(each.place());
            })
                                   : std::nullopt;
            place = found ? found->place() : QRect();
            return !place.isEmpty();
        })) << name.toStdString();
        return place;
    }

    [[nodiscard]] bool menusBecome(int count, int limitMs = kPatienceMs)
    {
        return waitFor([&] { return m_desktop.openMenus() == count; }, limitMs);
    }

    /// A menu hears the keyboard only some time after it can be seen: again until it has.
    [[nodiscard]] bool pressUntilMenus(const QString& key, int count)
    {
        constexpr int kServedMs = 3000;
        bool served = false;
        for (int i = 0; i < 10 && !served; ++i) {
            m_desktop.press(key);
            served = menusBecome(count, kServedMs);
        }
        return served;
    }

    MainWindow& window()
    {
        if (!m_window) {
            m_window = std::make_unique<MainWindow>(m_desktop, m_program);
        }
        return *m_window;
    }

    const QStringList kButtons = {u"push button"_s, u"check box"_s, u"toggle button"_s};

    Desktop& m_desktop;
    AccessibilityBus m_accessibility{m_desktop};
    Home m_home;
    Application m_program;
    MprisClient m_controls;
    std::unique_ptr<MainWindow> m_window;
    qsizetype m_saidBefore = 0;
};

struct Way
{
    std::string name;
    std::function<void(Lesson&)> use;
};

using Ways = std::vector<Way>;

/// A key, in both windows.
Ways key(const QString& key)
{
    const std::string name = key.toStdString();
    return {{name + " in the main window", [=](Lesson& lesson) { lesson.press(kMain, key); }},
            {name + " in the video window", [=](Lesson& lesson) { lesson.press(kVideo, key); }}};
}

/// An entry of both windows' menus, by its access keys.
Ways menu(const QStringList& keys)
{
    return {{"the playlist's menu", [=](Lesson& lesson) { lesson.chooseInMenu(kMain, keys); }},
            {"the picture's menu", [=](Lesson& lesson) { lesson.chooseInMenu(kVideo, keys); }}};
}

Ways bar(const QString& name)
{
    return {{"the bar", [=](Lesson& lesson) { lesson.pressInBar(name); }}};
}

Ways panel(const QStringList& keys)
{
    return {{"the panel", [=](Lesson& lesson) { lesson.pressInPanel(keys); }}};
}

/// A button or a chip of the main window.
Ways button(const QString& name)
{
    return {
        {"the button " + name.toStdString(), [=](Lesson& lesson) { lesson.pressButton(name); }}};
}

Ways call(const QString& method)
{
    return {
        {"D-Bus " + method.toStdString(), [=](Lesson& lesson) { lesson.controls().call(method); }}};
}

Ways rate(double rate)
{
    return {{"D-Bus Rate", [=](Lesson& lesson) { lesson.controls().setRate(rate); }}};
}

Ways loop(const QString& status)
{
    return {{"D-Bus LoopStatus", [=](Lesson& lesson) { lesson.controls().setLoop(status); }}};
}

Ways operator+(Ways one, const Ways& other)
{
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

class SameResult : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isReady()) << desktop.problem().toStdString();
        const QStringList texts = {u"One"_s, u"Two"_s, u"Three"_s, u"Four"_s, u"End"_s};
        QList<BrakeLine> brakes;
        for (std::size_t i = 0; i < kLines.size(); ++i) {
            brakes.append({kLines.at(i), texts[qsizetype(i)]});
        }
        packet = writeBrakes(desktop.folder() + u"/lesson.vxl"_s, media(u"video200.mp4"_s), brakes);
    }

    /// practice: what is practised as the program starts.
    void expectOf(const Ways& ways, const Outcome& wanted,
                  const QList<std::pair<QString, QString>>& practice = {})
    {
        for (const Way& way : ways) {
            SCOPED_TRACE(way.name);
            Lesson lesson(desktop, practice);
            ASSERT_TRUE(lesson.begin(packet));
            way.use(lesson);
            Outcome got;
            EXPECT_TRUE(waitFor([&] {
                got = lesson.outcome();
                return got == wanted;
            })) << got
                << "\nwanted " << wanted;
            lesson.playOn();
            EXPECT_EQ(lesson.outcome().log.join(u", "), wanted.log.join(u", "));
        }
    }

    Desktop desktop;
    QString packet;
};

} // namespace

TEST_F(SameResult, OfTheNextLine)
{
    expectOf(key(u"Next"_s) + key(u"XF86AudioNext"_s) + menu({u"n"_s}) + bar(u"Next line"_s) +
                 call(u"Next"_s),
             {.log = {u"start 1 3 Three"_s}, .from = 70, .title = u"Three"_s});
}

TEST_F(SameResult, OfThePreviousLine)
{
    expectOf(key(u"Prior"_s) + key(u"XF86AudioPrev"_s) + menu({u"r"_s}) + bar(u"Previous line"_s) +
                 call(u"Previous"_s),
             {.log = {u"start 1 1 One"_s}, .from = 10, .title = u"One"_s});
}

TEST_F(SameResult, OfThisLineAgain)
{
    expectOf(key(u"BackSpace"_s) + menu({u"i"_s}) + bar(u"This line again"_s), {.from = 40});
}

TEST_F(SameResult, OfRepeating)
{
    expectOf(key(u"F6"_s) + menu({u"c"_s, u"r"_s}) + bar(u"Repeat lines endlessly"_s) +
                 panel({u"Tab"_s, u"End"_s}) + loop(u"Track"_s),
             {.practice = u"repeat=0"_s, .loop = u"Track"_s});
}

TEST_F(SameResult, OfNoMoreRepeating)
{
    expectOf(key(u"F6"_s) + menu({u"c"_s, u"r"_s}) + bar(u"Repeat lines endlessly"_s) +
                 panel({u"Tab"_s, u"Home"_s}) + button(u"endlessly"_s) + loop(u"None"_s),
             {.practice = u"repeat=1"_s}, {{u"repeat"_s, u"0"_s}});
}

TEST_F(SameResult, OfSlower)
{
    expectOf(key(u"F7"_s) + menu({u"c"_s, u"s"_s}) + panel({u"Up"_s}) + rate(0.95),
             {.practice = u"speed=95"_s, .rate = 0.95});
}

TEST_F(SameResult, OfFaster)
{
    expectOf(key(u"F8"_s) + menu({u"c"_s, u"f"_s}) + panel({u"Down"_s}) + rate(1.1),
             {.practice = u"speed=110"_s, .rate = 1.1});
}

TEST_F(SameResult, OfTheNormalSpeed)
{
    const Ways backToNormal = {
        {"the panel's button", [](Lesson& lesson) { lesson.pressBackToNormal(); }}};
    expectOf(key(u"shift+F7"_s) + menu({u"c"_s, u"n"_s}) + backToNormal + button(u"0.8\u00a0×"_s) +
                 rate(1),
             {.practice = u"speed=100"_s}, {{u"speed"_s, u"80"_s}});
}

TEST_F(SameResult, OfTheWaitRound)
{
    expectOf(key(u"F9"_s) + menu({u"c"_s, u"w"_s}) + panel({u"Tab"_s, u"Tab"_s, u"Down"_s}),
             {.practice = u"wait=-1"_s});
}

TEST_F(SameResult, OfTheTextOverThePicture)
{
    expectOf(key(u"F5"_s) + menu({u"v"_s}) + bar(u"Text over the picture"_s),
             {.practice = u"text=1"_s});
}

TEST_F(SameResult, OfAPause)
{
    expectOf(key(u"space"_s) + key(u"p"_s) + key(u"XF86AudioPlay"_s) + menu({u"a"_s}) +
                 bar(u"Play or pause"_s) + button(u"Pause"_s) + call(u"Pause"_s) +
                 call(u"PlayPause"_s),
             {.status = u"Paused"_s});
}

} // namespace orvanta::e2e
