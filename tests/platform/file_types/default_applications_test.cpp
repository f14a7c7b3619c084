// Which program opens a type of content, as the desktop's standard finds it.

#include "platform/file_types/default_applications.h"
#include "platform/file_types/mime_globs.h"
#include "tests/support/desktop_room.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kAvi = "video/x-msvideo";

struct DefaultApplicationsTest : testing::Test
{
    DefaultApplicationsTest()
    {
        for (const char16_t* id : {u"one.desktop", u"two.desktop", u"three.desktop"}) {
            room.install(QString::fromUtf16(id));
        }
    }

    void putDefault(QStringView file, const QByteArray& programs) const
    {
        room.write(file, "[Default Applications]\nvideo/x-msvideo=" + programs + '\n');
    }

    static QByteArray found() { return DefaultApplications().defaultOf(kAvi); }

    DesktopRoom room;
};

} // namespace

TEST_F(DefaultApplicationsTest, NobodyOpensATypeThatNobodyNames)
{
    EXPECT_EQ(found(), QByteArray());
}

TEST_F(DefaultApplicationsTest, TheUsersListGoesBeforeTheSystems)
{
    putDefault(u"system/applications/mimeapps.list", "three.desktop");
    EXPECT_EQ(found(), "three.desktop");
    putDefault(u"system-config/mimeapps.list", "two.desktop");
    EXPECT_EQ(found(), "two.desktop");
    putDefault(u"config/mimeapps.list", "one.desktop");
    EXPECT_EQ(found(), "one.desktop");
}

TEST_F(DefaultApplicationsTest, AColonInTheNameOfTheUsersFolderIsALetter)
{
    putDefault(u"a:b/mimeapps.list", "one.desktop");
    room.set("XDG_CONFIG_HOME", room.path(u"a:b"));
    EXPECT_EQ(found(), "one.desktop");
    room.set("XDG_CONFIG_HOME", {});
    room.set("HOME", room.path(u"c:d"));
    putDefault(u"c:d/.config/mimeapps.list", "two.desktop");
    EXPECT_EQ(found(), "two.desktop");
}

TEST_F(DefaultApplicationsTest, ARelativeUsersFolderCountsAsNone)
{
    putDefault(u"home/.config/mimeapps.list", "one.desktop");
    for (const QString& folder : {u"config"_s, u"."_s, u"a:/b"_s}) {
        room.set("XDG_CONFIG_HOME", folder);
        EXPECT_EQ(found(), "one.desktop") << qPrintable(folder);
    }
}

TEST_F(DefaultApplicationsTest, TheRunningDesktopsListGoesBeforeThePlainOne)
{
    putDefault(u"config/mimeapps.list", "one.desktop");
    putDefault(u"config/kde-mimeapps.list", "two.desktop");
    EXPECT_EQ(found(), "one.desktop");
    room.set("XDG_CURRENT_DESKTOP", u"X-Other:KDE"_s);
    EXPECT_EQ(found(), "two.desktop");
}

TEST_F(DefaultApplicationsTest, ProgramsThatAreNotInstalledArePassedOver)
{
    putDefault(u"config/mimeapps.list", "gone.desktop;two.desktop");
    putDefault(u"system-config/mimeapps.list", "one.desktop");
    EXPECT_EQ(found(), "two.desktop");
    putDefault(u"config/mimeapps.list", "gone.desktop");
    EXPECT_EQ(found(), "one.desktop");
}

TEST_F(DefaultApplicationsTest, AnIdMayNameAnEntryInAFolder)
{
    room.write(u"system/applications/kde/player.desktop", "[Desktop Entry]\n");
    putDefault(u"config/mimeapps.list", "kde-player.desktop");
    EXPECT_EQ(found(), "kde-player.desktop");
}

TEST_F(DefaultApplicationsTest, WithoutADefaultTheFirstThatSaysSoOpensIt)
{
    room.write(u"system/applications/mimeinfo.cache",
               "[MIME Cache]\nvideo/x-msvideo=gone.desktop;two.desktop;one.desktop;\n");
    EXPECT_EQ(found(), "two.desktop");
    room.write(u"config/mimeapps.list", "[Removed Associations]\nvideo/x-msvideo=two.desktop;\n");
    EXPECT_EQ(found(), "one.desktop");
    room.write(u"config/mimeapps.list", "[Added Associations]\nvideo/x-msvideo=three.desktop;\n");
    EXPECT_EQ(found(), "three.desktop");
}

TEST_F(DefaultApplicationsTest, WhatAListAddsItDoesNotRemoveItself)
{
    room.write(u"config/mimeapps.list", "[Added Associations]\nvideo/x-msvideo=two.desktop;\n"
                                        "[Removed Associations]\nvideo/x-msvideo=two.desktop;\n");
    EXPECT_EQ(found(), "two.desktop");
    room.write(u"config/mimeapps.list", "[Removed Associations]\nvideo/x-msvideo=two.desktop;\n");
    room.write(u"system-config/mimeapps.list",
               "[Added Associations]\nvideo/x-msvideo=two.desktop;one.desktop\n");
    EXPECT_EQ(found(), "one.desktop");
}

TEST(MimeGlobsTest, KnowsTypesByExtensionWithoutCase)
{
    const DesktopRoom room;
    MimeGlobs globs;
    globs.readWhenChanged();
    EXPECT_EQ(globs.typesOf(u"avi"_s), QStringList(u"video/x-msvideo"_s));
    EXPECT_EQ(globs.typesOf(u"AVI"_s), QStringList(u"video/x-msvideo"_s));
    EXPECT_EQ(globs.typesOf(u"c"_s), QStringList()); // its pattern is for capital C alone
    EXPECT_EQ(globs.typesOf(u"xyz"_s), QStringList());
}

TEST(MimeGlobsTest, AMediaTypeGoesBeforeOthersOfTheSameExtension)
{
    const DesktopRoom room;
    MimeGlobs globs;
    globs.readWhenChanged();
    EXPECT_EQ(globs.typesOf(u"ts"_s), QStringList(u"video/mp2t"_s));
}

TEST(MimeGlobsTest, TheHeavierPatternIsFirst)
{
    const DesktopRoom room;
    room.write(u"data/mime/globs2", "50:video/light:*.clip\n80:video/heavy:*.clip\nbroken line\n");
    MimeGlobs globs;
    globs.readWhenChanged();
    EXPECT_EQ(globs.typesOf(u"clip"_s), (QStringList{u"video/heavy"_s, u"video/light"_s}));
    EXPECT_FALSE(globs.isSystems(u"clip"_s));
    EXPECT_TRUE(globs.isSystems(u"avi"_s));
}

} // namespace orvanta
