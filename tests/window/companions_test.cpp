// The menu entries that start other programs and open documents.

#include "tests/window/window_fixture.h"

#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QUrl>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace orvanta::test {

namespace {

/// Puts its arguments, environment and descriptors into files beside itself, each file whole.
constexpr const char* kWitness = R"(#!/bin/sh
here=$(dirname "$0")
ls -l /proc/$$/fd >"$here/descriptors.part" 2>/dev/null
env >"$here/environment.part"
echo $$ >"$here/process.part"
printf '%s' "$*" >"$here/arguments.part"
for part in descriptors environment process arguments; do
    mv "$here/$part.part" "$here/$part"
done
)";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The application folder has a blank in its name.
class Companions : public Form2Test
{
protected:
    Companions()
    {
        QDir(home.path()).mkpath(u"My Player"_s);
        QDir(home.path()).mkpath(u"opener"_s);
        module.ApplicationFolder = home.path() + u"/My Player"_s;
        m_path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(home.file(u"opener"_s)) + ':' + m_path);
    }
    ~Companions() override { qputenv("PATH", m_path); }

    [[nodiscard]] QString inFolder(const QString& name) const
    {
        return module.ApplicationFolder + u'/' + name;
    }

    void putWitness(const QString& path, bool executable = true) const
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(kWitness);
        file.close();
        if (executable) {
            file.setPermissions(file.permissions() | QFile::ExeOwner);
        }
    }
    void putOpener() const { putWitness(home.file(u"opener/xdg-open"_s)); }

    /// Waits until the witness in that folder has done its work.
    [[nodiscard]] static bool ran(const QString& folder)
    {
        return QTest::qWaitFor([&] { return QFile::exists(folder + u"/arguments"_s); }, 20000);
    }

    [[nodiscard]] bool startsCdProgram()
    {
        putWitness(inFolder(u"cdcreate.exe"_s));
        load().cdc->trigger();
        return ran(module.ApplicationFolder);
    }

    [[nodiscard]] QByteArray openedAddress() const
    {
        return contentOf(home.file(u"opener/arguments"_s));
    }

    [[nodiscard]] QString shortcut() const
    {
        return ReadIni(u"InternetShortcut"_s, u"URL"_s, inFolder(u"help.url"_s));
    }

private:
    QByteArray m_path;
};

TEST_F(Companions, TheDocumentationIsOpenedByItsProperAddressInTheInterfaceLanguage)
{
    putOpener();
    for (const QString& name : {u"help_eng.htm"_s, u"help_rus.htm"_s}) {
        QFile file(inFolder(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    load(1).doc->trigger();
    ASSERT_TRUE(ran(home.file(u"opener"_s)));
    EXPECT_EQ(openedAddress(),
              QUrl::fromLocalFile(inFolder(u"help_eng.htm"_s)).toEncoded().constData());
    EXPECT_TRUE(openedAddress().contains("My%20Player/help_eng.htm"));
    QFile::remove(home.file(u"opener/arguments"_s));
    load(3).doc->trigger();
    ASSERT_TRUE(ran(home.file(u"opener"_s)));
    EXPECT_TRUE(openedAddress().endsWith("/help_rus.htm"));
}

TEST_F(Companions, F1OpensTheDocumentationFromEveryWindowAlsoOverADialog)
{
    putOpener();
    QFile file(inFolder(u"help_eng.htm"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    load(1);
    QDialog dialog(window.get());
    QLineEdit box(&dialog);
    dialog.open();
    for (QWidget* focused : std::initializer_list<QWidget*>{window->List1, window->Text1, &box}) {
        QFile::remove(home.file(u"opener/arguments"_s));
        QTest::keyClick(focused, Qt::Key_F1);
        ASSERT_TRUE(ran(home.file(u"opener"_s)));
        EXPECT_TRUE(openedAddress().endsWith("/help_eng.htm"));
    }
}

TEST_F(Companions, TheShortcutHoldsTheAddressWithOnlyItsBlanksReplaced)
{
    putOpener();
    load(1).doc->trigger();
    const QString plain = u"file:///"_s + inFolder(u"help_eng.htm"_s);
    EXPECT_EQ(shortcut(), QString(plain).replace(u' ', u"%20"_s));
    EXPECT_TRUE(
        contentOf(inFolder(u"help.url"_s)).startsWith("[InternetShortcut]\r\nURL=file:///"));
    load(2).doc->trigger();
    EXPECT_TRUE(shortcut().endsWith(u"/My%20Player/help_rus.htm"));
    ASSERT_TRUE(ran(home.file(u"opener"_s)));
}

TEST_F(Companions, LettersOutsideAsciiStayAsTheyAreInTheShortcut)
{
    putOpener();
    QDir(home.path()).mkpath(u"Мой плеер"_s);
    module.ApplicationFolder = home.path() + u"/Мой плеер"_s;
    load(1).doc->trigger();
    EXPECT_TRUE(shortcut().endsWith(u"/Мой%20плеер/help_eng.htm")) << qPrintable(shortcut());
    ASSERT_TRUE(ran(home.file(u"opener"_s)));
}

TEST_F(Companions, AShortcutThatCannotBeWrittenKeepsNoDocumentationFromTheOpener)
{
    putOpener();
    // A folder that does not exist: there the shortcut cannot be written either.
    module.ApplicationFolder = home.file(u"gone"_s);
    load(1).doc->trigger();
    ASSERT_TRUE(ran(home.file(u"opener"_s)));
    EXPECT_TRUE(openedAddress().endsWith("/help_eng.htm")) << openedAddress().constData();
    EXPECT_FALSE(QFile::exists(inFolder(u"help.url"_s)));
    EXPECT_FALSE(reported.has_value());
}

TEST_F(Companions, TheInstalledDocumentationIsOpenedWhereTheFolderHasNone)
{
    putOpener();
    load(1).doc->trigger();
    ASSERT_TRUE(ran(home.file(u"opener"_s)));
    EXPECT_EQ(QString::fromUtf8(openedAddress()),
              QUrl::fromLocalFile(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/help/help_eng.htm"))
                  .toString(QUrl::FullyEncoded));
}

TEST_F(Companions, TheTutorialIsStartedAsNamedBeforeAnyOther)
{
    putWitness(inFolder(u"tutorial.exe"_s));
    load().tu->trigger();
    EXPECT_TRUE(ran(module.ApplicationFolder));
    EXPECT_EQ(contentOf(inFolder(u"arguments"_s)), "");
    EXPECT_FALSE(reported.has_value());
}

TEST_F(Companions, AFileThatCannotBeExecutedIsPassedOverForTheOneWithoutTheEnding)
{
    for (const bool isBesideOne : {false, true}) {
        QFile::remove(inFolder(u"arguments"_s));
        if (isBesideOne) {
            putWitness(inFolder(u"cdcreate.exe"_s), false);
        }
        putWitness(inFolder(u"cdcreate"_s));
        load().cdc->trigger();
        EXPECT_TRUE(ran(module.ApplicationFolder)) << isBesideOne;
    }
}

TEST_F(Companions, WhatIsMissingIsErrorFiftyThreeUntrapped)
{
    const std::pair<const char*, std::function<void()>> entries[] = {
        {"a program",
         [this] {
             setting("add-ins", "num", u"1"_s);
             setting("add-ins", "path1", u"absent.exe"_s);
             load().add[0]->trigger();
             setting("add-ins", "num", u"0"_s);
             setting("add-ins", "path1", QString());
         }},
        {"the entry that is left without add-ins", [this] { load().add[0]->trigger(); }},
        {"an add-in without a path",
         [this] {
             setting("add-ins", "num", u"1"_s);
             setting("add-ins", "namee1", u"Counter"_s);
             load().add[0]->trigger();
         }},
    };
    for (const auto& [what, choose] : entries) {
        reported.reset();
        choose();
        EXPECT_EQ(reported, ErrorNumber::FileNotFound) << what;
    }
}

TEST_F(Companions, AProgramOfAnUnknownKindIsAnErrorToo)
{
    QFile file(inFolder(u"cdcreate.exe"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x7f"
               "no program at all");
    file.close();
    file.setPermissions(file.permissions() | QFile::ExeOwner);
    load().cdc->trigger();
    EXPECT_EQ(reported, ErrorNumber::InvalidProcedureCall);
}

TEST_F(Companions, TheThirdAddInStartsTheProgramOfItsPath)
{
    setting("add-ins", "num", u"3"_s);
    setting("add-ins", "path1", u"one.exe"_s);
    setting("add-ins", "path2", u"two.exe"_s);
    setting("add-ins", "path3", u"tools\\third.exe"_s);
    putWitness(inFolder(u"tools/third.exe"_s));
    load();
    ASSERT_EQ(window->ai->actions().size(), 3);
    window->ai->actions().at(2)->trigger();
    EXPECT_TRUE(ran(inFolder(u"tools"_s)));
    EXPECT_FALSE(reported.has_value());
}

TEST_F(Companions, AStartedProgramGetsNoDescriptorOfThePlayer)
{
    const int leaking = ::open("/dev/zero", O_RDONLY); // as a careless library opens it
    ASSERT_GE(leaking, 0);
    ASSERT_TRUE(startsCdProgram());
    ::close(leaking);
    const QByteArray descriptors = contentOf(inFolder(u"descriptors"_s));
    EXPECT_TRUE(descriptors.contains("0 -> /dev/null")) << descriptors.constData();
    EXPECT_FALSE(descriptors.contains("/dev/zero")) << descriptors.constData();
    EXPECT_FALSE(descriptors.contains("socket:")) << descriptors.constData();
}

TEST_F(Companions, AStartedProgramIsToldWhereThePlayerIs)
{
    ASSERT_TRUE(startsCdProgram());
    const QByteArrayList variables = contentOf(inFolder(u"environment"_s)).split('\n');
    EXPECT_TRUE(variables.contains("ORVANTA_HOME=" + QFile::encodeName(module.ApplicationFolder)));
    EXPECT_TRUE(variables.contains("ORVANTA_PROGRAM=" +
                                   QFile::encodeName(QCoreApplication::applicationFilePath())));
}

TEST_F(Companions, TheCdProgramIsToldWhatIsOpen)
{
    PlaylistEntry one;
    one.Origin = std::make_shared<PacketOrigin>(PacketOrigin{u"/my lessons/one.vxl"_s, {}});
    PlaylistEntry two;
    two.Origin = std::make_shared<PacketOrigin>(PacketOrigin{u"/two.vxl"_s, {}});
    module.playlist.Playlist = {one, two, one, PlaylistEntry()};
    ASSERT_TRUE(startsCdProgram());
    const QByteArray variables = contentOf(inFolder(u"environment"_s));
    EXPECT_TRUE(
        variables.contains("\nORVANTA_DOCUMENTS=file:///my%20lessons/one.vxl file:///two.vxl\n"))
        << variables.constData();
    EXPECT_EQ(contentOf(inFolder(u"arguments"_s)), "");
    QFile::remove(inFolder(u"arguments"_s));
    module.playlist.Document = u"/group.vxg"_s;
    window->cdc->trigger();
    ASSERT_TRUE(ran(module.ApplicationFolder));
    EXPECT_TRUE(
        contentOf(inFolder(u"environment"_s)).contains("\nORVANTA_DOCUMENTS=file:///group.vxg\n"));
}

TEST_F(Companions, AnEndedProgramLeavesNoZombie)
{
    ASSERT_TRUE(startsCdProgram());
    const pid_t child = contentOf(inFolder(u"process"_s)).trimmed().toInt();
    ASSERT_GT(child, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ::kill(child, 0) != 0; }, 20000));
}

TEST_F(Companions, AboutAsksForItsWindow)
{
    load();
    EXPECT_EQ(aboutRequests, 0);
    window->ab->trigger();
    EXPECT_EQ(aboutRequests, 1);
}

} // namespace orvanta::test
