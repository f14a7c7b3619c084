// The program among the desktop's own tools: what the Options dialog registers is what they open.

#include "tests/e2e/support/dialog.h"
#include "tests/e2e/support/end_to_end.h"
#include "tests/e2e/support/tray.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

namespace {

const QString kAvi = u"video/x-msvideo"_s;
/// What other programs have written, in their own ways.
constexpr const char* kOthers = "# kept by hand\n"
                                "[Default Applications]\n"
                                "text/plain=editor.desktop;\n"
                                "video/x-msvideo=player.desktop\n"
                                "\n"
                                "[Added Associations]\n"
                                "video/x-msvideo=other.desktop;player.desktop;\n";

} // namespace

class Registration : public EndToEnd
{
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        for (const char* tool : {"xdg-mime", "xdg-open", "gio", "update-mime-database",
                                 "update-desktop-database", "desktop-file-validate", "file"}) {
            ASSERT_FALSE(QStandardPaths::findExecutable(QString::fromUtf8(tool)).isEmpty())
                << tool << " is not installed";
        }
        writeFile(u".local/share/applications/player.desktop"_s,
                  "[Desktop Entry]\nType=Application\nName=Player\nExec=true %F\n");
        writeFile(u".config/mimeapps.list"_s, kOthers);
        QFile::copy(media(u"short.avi"_s), file(u"x.avi"_s));
        home.setOption(u"as"_s, false); // no video window comes in front of the dialogs
    }

    /// A program finds a file manager, which is all that it wants to know of it.
    void giveFileManager(Application& application)
    {
        const QString folder = file(u"bin"_s);
        QDir().mkpath(folder);
        const QString manager = writeBytes(folder + u"/nautilus"_s, "#!/bin/sh\n");
        QFile::setPermissions(manager, QFile::ReadOwner | QFile::ExeOwner);
        application.setVariable(u"PATH"_s, folder + u':' + desktop.environment().value(u"PATH"_s));
    }

    [[nodiscard]] QString userFile(const QString& name) const
    {
        return desktop.environment().value(u"HOME"_s) + u'/' + name;
    }

    void writeFile(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(userFile(name)).path());
        QFile out(userFile(name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }

    [[nodiscard]] QByteArray readFile(const QString& name) const
    {
        QFile in(userFile(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    /// Runs a tool of the desktop with the program's application folder, as a session has it.
    QByteArray tool(const QString& name, const QStringList& arguments)
    {
        QProcessEnvironment environment = desktop.environment();
        environment.insert(u"ORVANTA_HOME"_s, home.folder());
        OwnedProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(name, arguments);
        process.waitForFinished(kPatienceMs);
        return process.readAllStandardOutput().trimmed();
    }

    [[nodiscard]] QByteArray defaultOf(const QString& type)
    {
        return tool(u"xdg-mime"_s, {u"query"_s, u"default"_s, type});
    }

    /// The first line that gio has to say about a type names its default.
    [[nodiscard]] bool gioNames(const QString& type, const QByteArray& id)
    {
        return tool(u"gio"_s, {u"mime"_s, type}).split('\n').value(0).endsWith(id);
    }

    [[nodiscard]] bool openOptions()
    {
        // The splash bears the same title, and its going would be taken for the menu's coming.
        const bool isAlone =
            waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; });
        m_options.emplace(desktop, program, u"Options"_s);
        return isAlone && window().chooseFromMenu(u"Tools..."_s, 1) && m_options->isOpen();
    }

    /// By its key, which reaches the dialog as soon as it is active; its place on the screen is
    /// certain only then.
    [[nodiscard]] bool showPage(int number)
    {
        if (!waitFor([this] { return desktop.activeWindowTitle() == u"Options"; })) {
            return false;
        }
        desktop.press(u"alt+%1"_s.arg(number));
        return true;
    }

    /// Clicks the mark of a type on the file page.
    [[nodiscard]] bool toggleType(const QString& type)
    {
        return showPage(3) &&
               m_options->toggleItem(u"Types of files that this program opens"_s, type);
    }

    [[nodiscard]] bool toggleStartWithTheSession()
    {
        return showPage(2) && m_options->toggle(u"Start program with windows"_s);
    }

    [[nodiscard]] bool pressOk() { return m_options->press(u"Ok"_s) && m_options->isClosed(); }

    /// Opens the options, changes one type and confirms.
    [[nodiscard]] bool changeType(const QString& type)
    {
        return openOptions() && toggleType(type) && pressOk();
    }

    [[nodiscard]] bool changeStartWithTheSession()
    {
        return openOptions() && toggleStartWithTheSession() && pressOk();
    }

    std::optional<Dialog> m_options;
};

TEST_F(Registration, ASelectedTypeIsOpenedByTheRunningProgramAndGoesBackToItsEarlierOwner)
{
    ASSERT_TRUE(program.startAndShow());
    EXPECT_EQ(defaultOf(kAvi), "player.desktop");
    ASSERT_TRUE(openOptions());
    EXPECT_EQ(home.get(u"types"_s, u"2reg"_s), u"player.desktop");
    ASSERT_TRUE(toggleType(u"avi"_s));
    ASSERT_TRUE(pressOk());
    EXPECT_EQ(defaultOf(kAvi), "orvanta.desktop");
    EXPECT_TRUE(gioNames(kAvi, "orvanta.desktop"));
    for (const QByteArray& line : QByteArray(kOthers).split('\n')) {
        const QByteArray own = "video/x-msvideo=player.desktop";
        const QByteArray now =
            line == own ? "video/x-msvideo=orvanta.desktop;player.desktop" : line;
        EXPECT_TRUE(readFile(u".config/mimeapps.list"_s).split('\n').contains(now))
            << line.constData();
    }
    EXPECT_EQ(tool(u"desktop-file-validate"_s,
                   {userFile(u".local/share/applications/orvanta.desktop"_s)}),
              "");

    const QByteArray said = tool(u"xdg-open"_s, {file(u"x.avi"_s)});
    EXPECT_TRUE(loads(1, 1)) << said.constData();

    ASSERT_TRUE(changeType(u"avi"_s));
    EXPECT_EQ(defaultOf(kAvi), "player.desktop");
    EXPECT_TRUE(gioNames(kAvi, "player.desktop"));
    EXPECT_EQ(readFile(u".config/mimeapps.list"_s), kOthers);
}

TEST_F(Registration, ATypeThatWasChosenForUsInTheFileManagerGoesBackToo)
{
    writeFile(u".local/share/applications/player.desktop"_s,
              "[Desktop Entry]\nType=Application\nName=Player\nExec=true %F\n"
              "MimeType=video/x-msvideo;\n");
    writeFile(u".config/mimeapps.list"_s, {});
    tool(u"update-desktop-database"_s, {userFile(u".local/share/applications"_s)});
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(changeType(u"avi"_s));
    // As file managers write it for "Open with".
    writeFile(u".config/mimeapps.list"_s,
              readFile(u".config/mimeapps.list"_s) +
                  "[Added Associations]\nvideo/x-msvideo=orvanta.desktop;\n");
    ASSERT_TRUE(gioNames(kAvi, "orvanta.desktop"));
    ASSERT_TRUE(changeType(u"avi"_s));
    // What the entry itself says is refreshed in the background.
    EXPECT_TRUE(waitFor([this] { return gioNames(kAvi, "player.desktop"); }))
        << readFile(u".config/mimeapps.list"_s).constData();
    EXPECT_EQ(defaultOf(kAvi), "player.desktop");
}

TEST_F(Registration, GioOpensASelectedTypeInTheRunningProgram)
{
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(changeType(u"avi"_s));
    const QByteArray said = tool(u"gio"_s, {u"open"_s, file(u"x.avi"_s)});
    EXPECT_TRUE(loads(1, 1)) << said.constData();
}

TEST_F(Registration, AnExtensionThatTheDesktopDidNotKnowOpensInTheProgram)
{
    home.set(u"types"_s, u"num"_s, u"1"_s);
    home.set(u"types"_s, u"file0"_s, u"orvclip"_s);
    QFile::copy(media(u"short.mp4"_s), file(u"x.orvclip"_s));
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(changeType(u"orvclip"_s));
    // The database is refreshed in the background.
    EXPECT_TRUE(waitFor([this] {
        return tool(u"gio"_s,
                    {u"info"_s, u"-a"_s, u"standard::fast-content-type"_s, file(u"x.orvclip"_s)})
            .contains("application/x-orvanta-orvclip");
    }));
    EXPECT_EQ(defaultOf(u"application/x-orvanta-orvclip"_s), "orvanta.desktop");
    tool(u"gio"_s, {u"open"_s, file(u"x.orvclip"_s)});
    EXPECT_TRUE(loads(1, 1));
}

TEST_F(Registration, AnAddedTypeIsAmongThePlayableOnesAtOnce)
{
    const QString folder = file(u"clips"_s);
    QDir().mkpath(folder);
    QFile::copy(media(u"short.mp4"_s), folder + u"/one.orvclip"_s);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(openOptions());
    ASSERT_TRUE(showPage(3));
    ASSERT_TRUE(m_options->type(u"New type"_s, u"orvclip"_s));
    ASSERT_TRUE(m_options->press(u"Add"_s));
    ASSERT_TRUE(pressOk());
    EXPECT_EQ(launchAgain(desktop, home, {u"/f"_s + folder}), 0);
    EXPECT_TRUE(loads(1, 1));
}

TEST_F(Registration, TheStartWithTheSessionComesWithItsOptionAndGoesWithIt)
{
    const QString autostart = u".config/autostart/orvanta.desktop"_s;
    home.setOption(u"nc"_s, true);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(changeStartWithTheSession());
    EXPECT_EQ(home.get(u"options"_s, u"ws"_s), u"1");
    EXPECT_EQ(tool(u"desktop-file-validate"_s, {userFile(autostart)}), "");
    ASSERT_TRUE(changeStartWithTheSession());
    EXPECT_FALSE(QFileInfo::exists(userFile(autostart)));
}

TEST_F(Registration, StartedWithTheSessionTheProgramStaysHiddenUntilAFileIsOpened)
{
    Tray tray(desktop);
    ASSERT_TRUE(tray.isReady());
    home.setOption(u"nc"_s, true);
    home.setOption(u"si"_s, true);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(changeStartWithTheSession());
    program.sendSignal(SIGTERM);
    ASSERT_TRUE(program.waitForEnd());

    // As a session starts it: by the command of the file.
    const QByteArrayList lines = readFile(u".config/autostart/orvanta.desktop"_s).split('\n');
    QByteArray command;
    for (const QByteArray& line : lines) {
        command = line.startsWith("Exec=") ? line.mid(5) : command;
    }
    const QStringList words = QProcess::splitCommand(QString::fromUtf8(command));
    const QString variable = u"ORVANTA_HOME="_s + home.folder();
    ASSERT_EQ(words.mid(0, 3), (QStringList{u"env"_s, variable, programPath()}));
    Application session(desktop, home);
    session.start(words.mid(3));
    ASSERT_TRUE(session.next(u"^orvanta.startup: ready$"_s)) << session.said();
    EXPECT_TRUE(tray.waitForIcons(1));
    EXPECT_EQ(desktop.visibleWindows(u"!Orvanta!"_s), 0);
    EXPECT_EQ(launchAgain(desktop, home, {media(u"short.mp4"_s)}), 0);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) > 0; }));
}

TEST_F(Registration, ADevelopmentRunRegistersNothingByItself)
{
    giveFileManager(program);
    program.setVariable(u"ORVANTA_UNREGISTERED"_s, u"1"_s);
    ASSERT_TRUE(program.startAndShow());
    EXPECT_EQ(readFile(u".local/share/nautilus/scripts/Play clips"_s), "");
    program.sendSignal(SIGTERM);
    ASSERT_TRUE(program.waitForEnd());
    Application installed(desktop, home);
    giveFileManager(installed);
    ASSERT_TRUE(installed.startAndShow());
    EXPECT_NE(readFile(u".local/share/nautilus/scripts/Play clips"_s), "");
}

TEST_F(Registration, TheTrayIconComesAndGoesWithItsOptionAtOnce)
{
    Tray tray(desktop);
    ASSERT_TRUE(tray.isReady());
    ASSERT_TRUE(program.startAndShow());
    for (const int icons : {1, 0}) {
        ASSERT_TRUE(openOptions());
        ASSERT_TRUE(showPage(2));
        ASSERT_TRUE(m_options->toggle(u"Show icon in system tray"_s));
        ASSERT_TRUE(pressOk());
        EXPECT_TRUE(tray.waitForIcons(icons));
    }
}

TEST_F(Registration, FoldersCanBePlayedFromTheFileManagersMenu)
{
    const QString folder = file(u"my clips"_s);
    QDir().mkpath(folder);
    QFile::copy(media(u"short.mp4"_s), folder + u"/one.mp4"_s);
    QFile::copy(media(u"short.wav"_s), folder + u"/two.wav"_s);
    giveFileManager(program);
    ASSERT_TRUE(program.startAndShow());
    tool(userFile(u".local/share/nautilus/scripts/Play clips"_s), {folder});
    EXPECT_TRUE(loads(1, 2));
    EXPECT_NE(defaultOf(u"inode/directory"_s), "orvanta.desktop");
}

} // namespace orvanta::e2e
