// Every window as assistive technology sees it: each control that can be used has a name, a role
// and something that can be done with it.

#include "tests/e2e/support/steered.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class AccessibilityWalk : public Steered
{
protected:
    /// A picture is mostly to look at; one that can be pressed is met like a button.
    static bool isInteractive(const Accessible& control, const QString& role)
    {
        if (role == u"graphic") {
            return !control.actions().isEmpty();
        }
        static const QSet<QString> kRoles = {
            u"push button"_s, u"toggle button"_s, u"check box"_s,   u"radio button"_s,
            u"slider"_s,      u"text"_s,          u"spin button"_s, u"combo box"_s,
            u"list"_s,        u"list item"_s,     u"tree"_s,        u"tree item"_s,
            u"table"_s,       u"table cell"_s,    u"menu item"_s,   u"check menu item"_s,
            u"page tab"_s};
        return kRoles.contains(role);
    }

    /// What is wrong with one control; empty when nothing is.
    static QString complaintAbout(const Accessible& control, const QString& role)
    {
        if (control.name().trimmed().isEmpty()) {
            return u"has no name"_s;
        }
        const bool isContainer = role == u"list" || role == u"tree" || role == u"table";
        if (!isContainer && control.isEnabled() && control.actions().isEmpty()) {
            return u"has no action"_s;
        }
        return {};
    }

    /// Looks at a control and at everything below it; of a list at its first lines.
    void walk(const Accessible& control)
    {
        const QString role = control.role();
        EXPECT_FALSE(role.isEmpty() || role == u"unknown" || role == u"invalid")
            << control.name().toStdString();
        if (isInteractive(control, role) && control.isShowing()) {
            ++m_met;
            const QString complaint = complaintAbout(control, role);
            EXPECT_TRUE(complaint.isEmpty())
                << role.toStdString() << " \"" << control.name().toStdString() << "\" ("
                << control.description().toStdString() << ") " << complaint.toStdString();
        }
        constexpr int kMostLines = 20;
        const int count = std::min(control.childCount(), kMostLines);
        for (int i = 0; i < count; ++i) {
            if (const auto child = control.child(i)) {
                walk(*child);
            }
        }
    }

    /// The window with this name, once it is shown.
    std::optional<Accessible> windowCalled(const QString& name)
    {
        std::optional<Accessible> found;
        const bool there = waitFor([&] {
            const auto top = m_bus.program(program.pid());
            for (const Accessible& each : top ? top->children() : std::vector<Accessible>()) {
                if (each.name() == name && each.isShowing()) {
                    found = each;
                }
            }
            return found.has_value();
        });
        return there ? found : std::nullopt;
    }

    /// Walks over a window. fewest: how many usable controls it has at least.
    void walkOver(const QString& name, int fewest)
    {
        SCOPED_TRACE(name.toStdString());
        const auto window = windowCalled(name);
        ASSERT_TRUE(window);
        m_met = 0;
        walk(*window);
        EXPECT_GE(m_met, fewest) << window->outline().toStdString();
    }

    int m_met = 0;
    AccessibilityBus m_bus{desktop};
};

TEST_F(AccessibilityWalk, TheMainWindowAndTheVideoWindow)
{
    playLesson();
    // Eleven buttons, three sliders, two lines of text, the playlist and its three lines.
    walkOver(kMainWindow, 20);
    walkOver(kVideoWindow, 0);
}

TEST_F(AccessibilityWalk, TheMainWindowWhileTheLessonIsEdited)
{
    playLesson();
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"F4"_s);
    ASSERT_TRUE(m_bus.control(program.pid(), u"push button"_s, u"Leave editing"_s));
    // Nine buttons instead of seven, and the strip.
    walkOver(kMainWindow, 21);
}

TEST_F(AccessibilityWalk, TheMainWindowInRussian)
{
    home.set(u"main"_s, u"language"_s, u"2"_s);
    playLesson();
    walkOver(kMainWindow, 20);
}

TEST_F(AccessibilityWalk, ALessonThatGoesOnAnnouncesItsLinesAndTakesNoFocus)
{
    const QString lesson =
        writeClips(file(u"two.vxl"_s), {{media(u"video200.mp4"_s), u"First"_s},
                                        {media(u"video200.mp4"_s), u"Second"_s}});
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(plays(u"start 1 1 First"_s));
    const auto top = windowCalled(kMainWindow);
    ASSERT_TRUE(top);
    EXPECT_TRUE(top->role() == u"frame" || top->role() == u"window") << top->role().toStdString();
    ASSERT_TRUE(desktop.activate(kMainWindow));
    const auto findBox = m_bus.control(program.pid(), u"text"_s, u"Find text"_s);
    ASSERT_TRUE(findBox);
    AccessibleEvents events(m_bus);
    desktop.press(u"ctrl+f"_s); // away from the list, which tells of its own line
    ASSERT_TRUE(waitFor([&] {
        return std::ranges::any_of(events.heard(), [](const QString& event) {
            return event.startsWith(u"StateChanged focused text"_s);
        });
    }));
    events.forget();
    controls.call(u"Next"_s);
    ASSERT_TRUE(plays(u"start 1 2 Second"_s));
    const QString announced = u"StateChanged showing notification Second, playing"_s;
    EXPECT_TRUE(waitFor([&] { return events.heard().contains(announced); }))
        << events.heard().join(u'\n').toStdString();
    for (const QString& event : events.heard()) {
        EXPECT_FALSE(event.startsWith(u"StateChanged focused"_s)) << event.toStdString();
    }
}

class DialogWalk : public AccessibilityWalk
{
protected:
    void SetUp() override
    {
        Steered::SetUp();
        ASSERT_TRUE(program.startAndShow());
    }

    /// Clicks a button of a dialog, once the window manager has put that in its place.
    bool click(const QString& dialog, const QString& button, const QString& role = u"push button"_s)
    {
        const auto top = desktop.activate(dialog) ? windowCalled(dialog) : std::nullopt;
        const auto found = top ? top->find(role, button) : std::nullopt;
        if (found) {
            desktop.click(found->place().center());
        }
        return found.has_value();
    }

    /// Closes the dialog in front, after which so many windows with its title are left.
    void escapeFrom(const QString& title, int left)
    {
        desktop.press(u"Escape"_s);
        EXPECT_TRUE(waitFor([&] { return desktop.visibleWindows(title) == left; }));
    }
};

TEST_F(DialogWalk, TheEditors)
{
    ASSERT_TRUE(window().chooseFromMenu(u"New..."_s, 1));
    walkOver(u"Create packet"_s, 10);
    escapeFrom(u"Create packet"_s, 0);
    ASSERT_TRUE(window().chooseFromMenu(u"New..."_s, 2));
    walkOver(u"Create group"_s, 10);
}

TEST_F(DialogWalk, TheOptionsAndTheAboutWindow)
{
    ASSERT_TRUE(window().chooseFromMenu(u"Tools..."_s, 1));
    walkOver(u"Options"_s, 10);
    escapeFrom(u"Options"_s, 0);
    ASSERT_TRUE(window().chooseFromMenu(u"Help..."_s, 3));
    walkOver(u"About author"_s, 1);
}

TEST_F(DialogWalk, TheEnlargedPicture)
{
    ASSERT_TRUE(window().chooseFromMenu(u"Help..."_s, 3));
    const QString about = u"About author"_s; // the picture's window bears the same title
    ASSERT_TRUE(click(about, u"Show the picture enlarged"_s, u"graphic"_s));
    ASSERT_TRUE(waitFor([&] { return desktop.visibleWindows(about) == 2; }));
    const auto picture = m_bus.control(program.pid(), u"graphic"_s, about);
    ASSERT_TRUE(picture);
    walk(*picture);
    EXPECT_EQ(m_met, 1);
}

TEST_F(DialogWalk, TheSavePicker)
{
    ASSERT_TRUE(window().chooseFromMenu(u"New..."_s, 1));
    ASSERT_TRUE(click(u"Create packet"_s, u"Save packet"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 2; }));
    walkOver(kMainWindow, 5); // the one in front, as of the open pickers
}

TEST_F(DialogWalk, TheOpenPickers)
{
    for (const QString& button : {u"Open clip..."_s, u"Open file..."_s}) {
        window().press(button);
        ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 2; }));
        walkOver(kMainWindow, 5); // the one in front: called as the main window is
        escapeFrom(kMainWindow, 1);
    }
}

class FirstStart : public AccessibilityWalk
{
protected:
    FirstStart() { QFile::remove(home.settingsFile()); }
};

TEST_F(FirstStart, TheLanguageDialog)
{
    program.start();
    walkOver(u"Select language"_s, 3);
}

} // namespace orvanta::e2e
