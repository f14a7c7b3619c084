// Types that are registered for the program and given back: the desktop's settings afterwards.

#include "platform/file_types/registry.h"
#include "tests/support/desktop_room.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kClasses = RegistryHive::ClassesRoot;

struct FileTypes : testing::Test
{
    FileTypes() { room.install(u"player.desktop"_s); }

    [[nodiscard]] QString value(const QString& key) const
    {
        return registry.RegReadString(kClasses, key, {});
    }
    [[nodiscard]] QString owner(const QString& extension) const { return value(u'.' + extension); }

    void setOwner(const QString& extension, const QString& value)
    {
        registry.RegWriteString(kClasses, u'.' + extension, {}, value);
    }

    /// As the Options dialog does it for a selected row.
    void registerType(const QString& extension)
    {
        const QString name = u"vx"_s + extension + u"file"_s;
        registry.RegWriteString(kClasses, name + u"\\DefaultIcon"_s, {},
                                folder.path() + u'\\' + extension + u".ico"_s);
        setOwner(extension, name);
        registry.RegWriteString(kClasses, name + u"\\shell\\open\\command"_s, {},
                                folder.path() + u"\\orvanta.exe %1"_s);
    }

    void putDefaults(const QByteArray& lines) const
    {
        room.write(u"config/mimeapps.list", "[Default Applications]\n" + lines);
    }

    [[nodiscard]] QByteArray defaults() const { return room.bytes(u"config/mimeapps.list"); }
    [[nodiscard]] QByteArray package() const
    {
        return room.bytes(u"data/mime/packages/orvanta-types.xml");
    }
    [[nodiscard]] QByteArray entry() const
    {
        return room.bytes(u"data/applications/orvanta.desktop");
    }

    DesktopRoom room;
    SettingsFolder folder;
    Registry registry{folder.path(), u"/opt/o/orvanta"_s};
};

} // namespace

TEST_F(FileTypes, ARegisteredTypeHasNameIconAndCommand)
{
    registerType(u"avi"_s);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    EXPECT_EQ(value(u"vxavifile\\DefaultIcon"_s), folder.path() + u"\\avi.ico"_s);
    EXPECT_EQ(value(u"vxavifile\\shell\\open\\command"_s), folder.path() + u"\\orvanta.exe %1"_s);
}

TEST_F(FileTypes, ARegisteredTypeIsOpenedByTheProgramsDesktopEntry)
{
    registerType(u"avi"_s);
    EXPECT_EQ(defaults(), "[Default Applications]\nvideo/x-msvideo=orvanta.desktop\n");
    EXPECT_TRUE(entry().contains("\nExec=/opt/o/orvanta %F\n")) << entry().constData();
    EXPECT_TRUE(entry().contains("\nMimeType=video/x-msvideo;\n"));
}

TEST_F(FileTypes, TheProgramOfAnotherMakerReadsAsItsDesktopEntry)
{
    putDefaults("video/x-msvideo=player.desktop;\n");
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(owner(u"mp3"_s), QString());
}

TEST_F(FileTypes, AProgramThatOpensATypeByItselfIsItsOwner)
{
    room.write(u"system/applications/mimeinfo.cache",
               "[MIME Cache]\nvideo/x-msvideo=player.desktop;\n");
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    registerType(u"avi"_s);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(defaults(), "[Default Applications]\n"); // the desktop comes to it by itself again
}

TEST_F(FileTypes, WritingAnEarlierOwnerGivesTheTypeBack)
{
    putDefaults("audio/mpeg=other.desktop\nvideo/x-msvideo=player.desktop;\n");
    const QByteArray before = defaults();
    registerType(u"avi"_s);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(defaults(), before);
}

TEST_F(FileTypes, AnEarlierOwnerWhoseLineIsGoneGetsOneOfItsOwn)
{
    registerType(u"avi"_s);
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(defaults(), "[Default Applications]\nvideo/x-msvideo=player.desktop\n");
}

TEST_F(FileTypes, AnEarlierOwnerThatIsNotInstalledAnyMoreGetsNothing)
{
    registerType(u"avi"_s);
    setOwner(u"avi"_s, u"removed.desktop"_s);
    EXPECT_EQ(owner(u"avi"_s), QString());
    EXPECT_EQ(defaults(), "[Default Applications]\n");
}

TEST_F(FileTypes, ATypeIsGivenToNobodyWhileItIsNotOurs)
{
    room.install(u"new.desktop"_s);
    registerType(u"avi"_s);
    putDefaults("video/x-msvideo=new.desktop;\n"); // the user's own choice meanwhile
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"avi"_s), u"new.desktop");
    setOwner(u"avi"_s, {});
    EXPECT_EQ(owner(u"avi"_s), u"new.desktop");
    EXPECT_EQ(defaults(), "[Default Applications]\nvideo/x-msvideo=new.desktop;\n");
}

TEST_F(FileTypes, TheEmptyTextTakesOutOurEntryAndNobodyElses)
{
    putDefaults("video/x-msvideo=player.desktop;\n");
    setOwner(u"avi"_s, {});
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    registerType(u"avi"_s);
    setOwner(u"avi"_s, {});
    EXPECT_EQ(defaults(), "[Default Applications]\nvideo/x-msvideo=player.desktop;\n");
}

TEST_F(FileTypes, WithoutASavedOwnerATypeIsNobodysAfterwards)
{
    registerType(u"avi"_s);
    setOwner(u"avi"_s, {});
    EXPECT_EQ(owner(u"avi"_s), QString());
    EXPECT_TRUE(entry().contains("\nMimeType=\n"));
}

TEST_F(FileTypes, NameIconAndCommandStayWhenATypeIsGivenBack)
{
    registerType(u"avi"_s);
    setOwner(u"avi"_s, {});
    EXPECT_EQ(value(u"vxavifile\\DefaultIcon"_s), folder.path() + u"\\avi.ico"_s);
    EXPECT_NE(value(u"vxavifile\\shell\\open\\command"_s), u"");
}

TEST_F(FileTypes, ATypeInCapitalsHasItsNameInCapitals)
{
    registerType(u"AVI"_s);
    EXPECT_EQ(owner(u"AVI"_s), u"vxAVIfile");
    EXPECT_TRUE(defaults().contains("video/x-msvideo=orvanta.desktop"));
}

TEST_F(FileTypes, AProgramInADrivesRootHasTwoSeparatorsInItsCommand)
{
    registry.RegWriteString(kClasses, u"vxavifile\\shell\\open\\command"_s, {},
                            u"C:\\"_s + u"\\orvanta.exe %1"_s);
    EXPECT_EQ(value(u"vxavifile\\shell\\open\\command"_s), u"C:\\\\orvanta.exe %1");
}

TEST_F(FileTypes, AnExtensionOfSeveralTypesIsRegisteredForAll)
{
    registerType(u"ogg"_s);
    EXPECT_TRUE(defaults().contains("audio/ogg=orvanta.desktop\n"));
    EXPECT_TRUE(defaults().contains("audio/x-vorbis+ogg=orvanta.desktop\n"));
    setOwner(u"ogg"_s, {});
    EXPECT_EQ(defaults(), "[Default Applications]\n");
}

TEST_F(FileTypes, AnExtensionOfATranslatorIsRegisteredAsMediaAlone)
{
    registerType(u"ts"_s);
    EXPECT_EQ(defaults(), "[Default Applications]\nvideo/mp2t=orvanta.desktop\n");
}

TEST_F(FileTypes, ATypeOfTwoExtensionsStaysOursAsLongAsOneOfThemIs)
{
    putDefaults("video/mpeg=player.desktop\n");
    registerType(u"mpg"_s);
    EXPECT_EQ(owner(u"mpg"_s), u"vxmpgfile");
    EXPECT_EQ(owner(u"mpeg"_s), QString());
    setOwner(u"mpeg"_s, {});
    EXPECT_EQ(owner(u"mpg"_s), u"vxmpgfile");
    registerType(u"mpeg"_s);
    setOwner(u"mpg"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"mpg"_s), QString());
    EXPECT_EQ(owner(u"mpeg"_s), u"vxmpegfile");
    setOwner(u"mpeg"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"mpeg"_s), u"player.desktop");
    EXPECT_EQ(owner(u"mpg"_s), u"player.desktop");
}

TEST_F(FileTypes, AUsersChoiceForUsInTheDesktopsSettingsCounts)
{
    room.install(u"orvanta.desktop"_s);
    putDefaults("video/x-msvideo=orvanta.desktop\n");
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    setOwner(u"avi"_s, {});
    EXPECT_EQ(defaults(), "[Default Applications]\n");
}

TEST_F(FileTypes, WhoWasChosenInTheFileManagerCanBeTakenOut)
{
    room.install(u"orvanta.desktop"_s);
    room.write(u"system/applications/mimeinfo.cache",
               "[MIME Cache]\nvideo/x-msvideo=player.desktop;orvanta.desktop;\n");
    // As file managers write it for "Open with" and "always".
    room.write(u"config/mimeapps.list",
               "[Added Associations]\naudio/mpeg=orvanta.desktop;\n"
               "video/x-msvideo=orvanta.desktop;player.desktop;\n"
               "[Default Applications]\nvideo/x-msvideo=orvanta.desktop\n");
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    setOwner(u"avi"_s, {});
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(defaults(), "[Added Associations]\naudio/mpeg=orvanta.desktop;\n"
                          "video/x-msvideo=player.desktop;\n[Default Applications]\n");
}

TEST_F(FileTypes, AnAdditionThatDoesNoHarmStays)
{
    putDefaults("video/x-msvideo=player.desktop\n");
    const QByteArray before =
        defaults() + "[Added Associations]\nvideo/x-msvideo=player.desktop;orvanta.desktop;\n";
    room.write(u"config/mimeapps.list", before);
    registerType(u"avi"_s);
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(defaults(), before);
}

TEST_F(FileTypes, AnOlderChoiceForUsBesideTheUsersEntriesIsTakenOutToo)
{
    room.install(u"orvanta.desktop"_s);
    room.write(u"data/applications/mimeapps.list",
               "[Default Applications]\nvideo/x-msvideo=orvanta.desktop;player.desktop\n");
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    setOwner(u"avi"_s, {});
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(defaults(), QByteArray());
}

TEST_F(FileTypes, AnInstalledProgramThatOpensATypeByItselfCanBeTakenOut)
{
    room.install(u"orvanta.desktop"_s);
    room.write(u"system/applications/mimeinfo.cache",
               "[MIME Cache]\nvideo/x-msvideo=orvanta.desktop;player.desktop;\n");
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    setOwner(u"avi"_s, {});
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    registerType(u"avi"_s);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    EXPECT_FALSE(defaults().contains("[Removed Associations]\nvideo"));
}

TEST_F(FileTypes, AListOfTheRunningDesktopIsChangedTooWhenItNamesTheType)
{
    room.set("XDG_CURRENT_DESKTOP", u"GNOME"_s);
    room.write(u"config/gnome-mimeapps.list",
               "[Default Applications]\nvideo/x-msvideo=player.desktop;\n");
    const QByteArray before = room.bytes(u"config/gnome-mimeapps.list");
    registerType(u"avi"_s);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    registerType(u"mp3"_s);
    EXPECT_FALSE(room.bytes(u"config/gnome-mimeapps.list").contains("audio/mpeg"));
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(room.bytes(u"config/gnome-mimeapps.list"), before);
}

TEST_F(FileTypes, TheSystemsListsAreNeverWritten)
{
    room.write(u"system-config/mimeapps.list",
               "[Default Applications]\nvideo/x-msvideo=player.desktop\n");
    const QByteArray before = room.bytes(u"system-config/mimeapps.list");
    registerType(u"avi"_s);
    EXPECT_EQ(room.bytes(u"system-config/mimeapps.list"), before);
    setOwner(u"avi"_s, u"player.desktop"_s);
    EXPECT_EQ(room.bytes(u"system-config/mimeapps.list"), before);
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
}

TEST_F(FileTypes, TheEntryOfAnInstalledProgramKeepsItsNamesAndActions)
{
    room.write(u"system/applications/orvanta.desktop",
               "[Desktop Entry]\nType=Application\nName=Orvanta\nName[ru]=Орванта\n"
               "Exec=orvanta %F\nTryExec=orvanta\nMimeType=application/x-orvanta-packet;\n"
               "Actions=background;\n\n[Desktop Action background]\nName=Start\n"
               "Exec=orvanta /auto\n");
    registerType(u"avi"_s);
    EXPECT_EQ(entry().toStdString(),
              "[Desktop Entry]\nType=Application\nName=Orvanta\nName[ru]=Орванта\n"
              "Exec=/opt/o/orvanta %F\nTryExec=/opt/o/orvanta\n"
              "MimeType=video/x-msvideo;application/x-orvanta-packet;\n"
              "Actions=background;\n\n[Desktop Action background]\nName=Start\n"
              "Exec=orvanta /auto\n");
}

TEST_F(FileTypes, AnUnknownExtensionGetsATypeOfItsOwn)
{
    registerType(u"xyz"_s);
    EXPECT_EQ(owner(u"xyz"_s), u"vxxyzfile");
    EXPECT_TRUE(package().contains("type=\"application/x-orvanta-xyz\"")) << package().constData();
    EXPECT_TRUE(package().contains("pattern=\"*.xyz\""));
    EXPECT_TRUE(defaults().contains("application/x-orvanta-xyz=orvanta.desktop"));
    setOwner(u"xyz"_s, {});
    EXPECT_FALSE(room.has(u"data/mime/packages/orvanta-types.xml"));
    EXPECT_EQ(defaults(), "[Default Applications]\n");
}

TEST_F(FileTypes, PacketsAndGroupsGetTheirTypesUnlessTheyAreInstalled)
{
    registerType(u"vxl"_s);
    registerType(u"vxg"_s);
    EXPECT_TRUE(package().contains("application/x-orvanta-packet"));
    EXPECT_TRUE(package().contains("application/x-orvanta-group"));
    EXPECT_TRUE(entry().contains("application/x-orvanta-packet;"));
    room.write(u"system/mime/globs2", "50:application/x-orvanta-packet:*.vxl\n"
                                      "50:application/x-orvanta-group:*.vxg\n");
    registerType(u"vxl"_s);
    EXPECT_FALSE(room.has(u"data/mime/packages/orvanta-types.xml"));
    EXPECT_EQ(owner(u"vxl"_s), u"vxvxlfile");
}

TEST_F(FileTypes, AnOwnTypeStaysInThePackageAfterTheDatabaseHasLearntIt)
{
    registerType(u"xyz"_s);
    room.write(u"data/mime/globs2", "50:application/x-orvanta-xyz:*.xyz\n");
    registerType(u"xyz"_s);
    EXPECT_TRUE(room.has(u"data/mime/packages/orvanta-types.xml"));
}

TEST_F(FileTypes, AnExtensionThatNoPatternHoldsIsKeptOutOfTheDesktop)
{
    for (const QString& extension : {u"a*b"_s, u"a/b"_s, u"a;b"_s, u"[x"_s}) {
        registerType(extension);
        EXPECT_EQ(owner(extension), u"vx"_s + extension + u"file"_s);
        EXPECT_FALSE(defaults().contains("orvanta")) << defaults().constData();
    }
    EXPECT_FALSE(room.has(u"data/mime/packages/orvanta-types.xml"));
}

TEST_F(FileTypes, UnusualExtensionsAreWrittenAsXmlWantsIt)
{
    registerType(u"a&<b"_s);
    registerType(u"клип"_s);
    EXPECT_TRUE(package().contains("*.a&amp;&lt;b")) << package().constData();
    EXPECT_TRUE(package().contains(QString(u"*.клип"_s).toUtf8()));
    EXPECT_TRUE(package().contains("x-orvanta-+43a+43b+438+43f"));
}

TEST_F(FileTypes, RegisteringAgainWritesNothing)
{
    registerType(u"avi"_s);
    registerType(u"xyz"_s);
    const QStringList files = {
        room.path(u"config/mimeapps.list"), room.path(u"data/applications/orvanta.desktop"),
        room.path(u"data/mime/packages/orvanta-types.xml"), folder.file(u"registry.ini"_s)};
    const auto identities = [&] {
        QList<quint64> numbers;
        for (const QString& file : files) {
            struct stat status = {};
            EXPECT_EQ(::stat(QFile::encodeName(file).constData(), &status), 0);
            numbers.append(status.st_ino);
            numbers.append(static_cast<quint64>(status.st_mtim.tv_nsec));
        }
        return numbers;
    };
    const QList<quint64> before = identities();
    registerType(u"avi"_s);
    registerType(u"xyz"_s);
    EXPECT_EQ(identities(), before);
}

TEST_F(FileTypes, WhatCannotBeWrittenIsPassedOver)
{
    room.write(u"config", "a file where a folder should be");
    room.write(u"data", "another");
    EXPECT_NO_THROW(registerType(u"avi"_s));
    EXPECT_NO_THROW(setOwner(u"avi"_s, u"player.desktop"_s));
    EXPECT_EQ(owner(u"avi"_s), QString());
}

TEST_F(FileTypes, AllTypesOfOneTurnAreThereAtItsEnd)
{
    putDefaults("audio/mpeg=player.desktop\n");
    {
        const Registry::Turn turn(registry);
        registerType(u"avi"_s);
        registerType(u"mp3"_s);
        EXPECT_EQ(owner(u"avi"_s), u"vxavifile"); // already read back
        EXPECT_FALSE(defaults().contains("orvanta"));
        setOwner(u"mp3"_s, u"player.desktop"_s);
    }
    EXPECT_EQ(defaults(), "[Default Applications]\naudio/mpeg=player.desktop\n"
                          "video/x-msvideo=orvanta.desktop\n");
    EXPECT_EQ(Registry(folder.path()).RegReadString(kClasses, u".avi"_s, {}), u"vxavifile");
}

TEST_F(FileTypes, FoldersAreNeverAmongTheTypes)
{
    registerType(u"avi"_s);
    registry.RegWriteString(kClasses, u"Folder\\shell\\Play clips\\command"_s, {},
                            folder.path() + u"\\orvanta.exe /f%1"_s);
    EXPECT_FALSE(entry().contains("inode/directory"));
    EXPECT_FALSE(defaults().contains("inode/directory"));
}

} // namespace orvanta
