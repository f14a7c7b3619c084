#include "app/start_up_steps.h"
#include "tests/support/desktop_room.h"
#include "tests/support/error_of.h"
#include "tests/support/settings_folder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct SetupCopy : testing::Test
{
    explicit SetupCopy() { QDir(folder.path()).mkdir(u"setup"_s); }

    void setOriginal(const QString& path) { WriteIni(u"main"_s, u"screxe"_s, path, folder.ini()); }

    int errorOfRepair()
    {
        return errorOf([this] { repairSetupCopy(folder.path()); });
    }

    SettingsFolder folder{"[main]\n"};
};

} // namespace

TEST_F(SetupCopy, TheNamedFileOfTheSetupFolderIsCopied)
{
    folder.write(u"setup/setup12.exe"_s, "the program");
    setOriginal(u"x:\\dist\\setup12.exe"_s);
    EXPECT_EQ(errorOfRepair(), 0);
    EXPECT_EQ(folder.bytes(u"setup/setup.exe"_s), "the program");
}

TEST_F(SetupCopy, APathOfThisSystemNamesTheFileToo)
{
    folder.write(u"setup/setup12.exe"_s, "the program");
    setOriginal(u"/dist/setup12.exe"_s);
    EXPECT_EQ(errorOfRepair(), 0);
    EXPECT_EQ(folder.bytes(u"setup/setup.exe"_s), "the program");
}

TEST_F(SetupCopy, AnExistingCopyIsLeftAlone)
{
    folder.write(u"setup/setup12.exe"_s, "new");
    folder.write(u"setup/setup.exe"_s, "old");
    setOriginal(u"x:\\dist\\setup12.exe"_s);
    EXPECT_EQ(errorOfRepair(), 0);
    EXPECT_EQ(folder.bytes(u"setup/setup.exe"_s), "old");
}

TEST_F(SetupCopy, NothingIsCopiedWithoutASeparatorInThePath)
{
    folder.write(u"setup/setup12.exe"_s, "the program");
    for (const QString& path : {QString(), u"setup12.exe"_s}) {
        setOriginal(path);
        EXPECT_EQ(errorOfRepair(), 0);
        EXPECT_FALSE(FileExists(folder.file(u"setup/setup.exe"_s)));
    }
}

TEST_F(SetupCopy, AMissingFileIsFileNotFound)
{
    setOriginal(u"x:\\dist\\setup12.exe"_s);
    EXPECT_EQ(errorOfRepair(), 53);
    setOriginal(u"x:\\dist\\"_s);
    EXPECT_EQ(errorOfRepair(), 53);
}

TEST_F(SetupCopy, ACopyThatCannotBeMadeIsAnAccessError)
{
    folder.write(u"setup/setup12.exe"_s, "the program");
    QDir(folder.path()).mkpath(u"setup/setup.exe/in the way"_s);
    setOriginal(u"x:\\dist\\setup12.exe"_s);
    EXPECT_EQ(errorOfRepair(), 75);
}

TEST(PlayerOptions, LeaveTheGraphicsProcessorOutOnlyWhenTheSettingsSayNo)
{
    const SettingsFolder folder;
    EXPECT_EQ(playerOptions(folder.path()), MpvOptionList());
    folder.write(u"platform.ini"_s, "[picture]\nhwdec=yes\n");
    EXPECT_EQ(playerOptions(folder.path()), MpvOptionList());
    folder.write(u"platform.ini"_s, "[picture]\nhwdec=no\n");
    EXPECT_EQ(playerOptions(folder.path()), (MpvOptionList{{"hwdec", "no"}}));
}

TEST(RendererOfTheVideoWindow, IsWhatTheSettingsSay)
{
    const SettingsFolder folder;
    EXPECT_EQ(rendererChoice(folder.path()).wish, RendererWish::Automatic);
    folder.write(u"platform.ini"_s, "[picture]\nrenderer=opengl\n");
    EXPECT_EQ(rendererChoice(folder.path()).wish, RendererWish::OpenGl);
    folder.write(u"platform.ini"_s, "[picture]\nrenderer=software\n");
    EXPECT_EQ(rendererChoice(folder.path()).wish, RendererWish::Software);
}

TEST(RendererOfTheVideoWindow, ADriverThatFailedIsRememberedBesideWhatStoodThere)
{
    const SettingsFolder folder;
    folder.write(u"platform.ini"_s, "[picture]\nhwdec=no\n");
    EXPECT_EQ(rendererChoice(folder.path()).failedDriver, QString());
    rendererChoice(folder.path()).remember(u"Some GPU (a, b), 4.6 [x]"_s);
    EXPECT_EQ(rendererChoice(folder.path()).failedDriver, u"Some GPU (a, b), 4.6 [x]");
    EXPECT_EQ(playerOptions(folder.path()), (MpvOptionList{{"hwdec", "no"}}));
}

TEST(RendererOfTheVideoWindow, TheVersionNamesWhatMayDraw)
{
    const SettingsFolder folder;
    const SettingsFolder devices;
    EXPECT_EQ(pictureLine(folder.path(), devices.path()),
              u"Pictures: drawn by the processor; decoded by the processor\n");
    devices.write(u"nvidiactl"_s, {});
    EXPECT_EQ(pictureLine(folder.path(), devices.path()),
              u"Pictures: drawn by OpenGL where its driver is a graphics processor's, else the "
              u"processor; decoded by the graphics processor where it can, else the processor\n");
    folder.write(u"platform.ini"_s, "[picture]\nrenderer=software\nhwdec=no\n");
    EXPECT_EQ(pictureLine(folder.path(), devices.path()),
              u"Pictures: drawn by the processor; decoded by the processor\n");
}

TEST(FolderVerb, IsWrittenWithTheProgramsFolderAndWithoutABlank)
{
    const DesktopRoom room;
    const SettingsFolder folder;
    Registry registry(folder.path());
    registerFolderVerb(registry, u"/opt/o"_s);
    EXPECT_EQ(registry.RegReadString(RegistryHive::ClassesRoot,
                                     u"Folder\\shell\\Play clips\\command"_s, {}),
              u"/opt/o\\orvanta.exe /f%1");
}

TEST(FolderVerb, IsRewrittenAtEveryStart)
{
    const DesktopRoom room;
    const SettingsFolder folder;
    Registry registry(folder.path());
    const QString key = u"Folder\\shell\\Play clips\\command"_s;
    registry.RegWriteString(RegistryHive::ClassesRoot, key, {}, u"something of the user's"_s);
    registerFolderVerb(registry, u"/moved"_s);
    EXPECT_EQ(registry.RegReadString(RegistryHive::ClassesRoot, key, {}),
              u"/moved\\orvanta.exe /f%1");
}

} // namespace orvanta
