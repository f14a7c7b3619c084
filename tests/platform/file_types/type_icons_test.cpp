// Icons of types: where they are looked for, and what the desktop's icon theme gets.

#include "platform/file_types/registry.h"
#include "platform/file_types/type_icons.h"
#include "tests/support/desktop_room.h"
#include "tests/support/settings_folder.h"

#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kClasses = RegistryHive::ClassesRoot;

struct TypeIcons : testing::Test
{
    /// An icon file of one colour and one size.
    static void makeIcon(const QString& file, int size, Qt::GlobalColor colour)
    {
        QImage picture(size, size, QImage::Format_ARGB32);
        picture.fill(colour);
        QDir().mkpath(QFileInfo(file).path());
        ASSERT_TRUE(picture.save(file, "ico")) << qPrintable(file);
    }

    void registerType(const QString& extension)
    {
        registry.RegWriteString(kClasses, u"vx"_s + extension + u"file\\DefaultIcon"_s, {},
                                folder.path() + u'\\' + extension + u".ico"_s);
        setOwner(extension, u"vx"_s + extension + u"file"_s);
    }

    void setOwner(const QString& extension, const QString& owner)
    {
        registry.RegWriteString(kClasses, u'.' + extension, {}, owner);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !registry.isWorkingInBackground(); }, 20000));
    }

    [[nodiscard]] QString themeFile(int size, const QString& name) const
    {
        return room.path(u"data/icons/hicolor/%1x%1/mimetypes/%2.png"_s.arg(size).arg(name));
    }

    /// The theme's icon of that size; null when there is none.
    [[nodiscard]] QImage themeIcon(int size, const QString& name) const
    {
        return QImage(themeFile(size, name));
    }

    DesktopRoom room;
    SettingsFolder folder;
    Registry registry{folder.path(), u"/opt/o/orvanta"_s};
};

} // namespace

TEST_F(TypeIcons, AreLookedForInTheApplicationFolderFirst)
{
    makeIcon(folder.file(u"icons/avi.ico"_s), 32, Qt::red);
    EXPECT_EQ(standardIcon(folder.path(), u"avi"_s), folder.file(u"icons/avi.ico"_s));
    EXPECT_EQ(currentIcon(folder.path(), u"avi"_s), folder.file(u"icons/avi.ico"_s));
    makeIcon(folder.file(u"avi.ico"_s), 32, Qt::red);
    EXPECT_EQ(currentIcon(folder.path(), u"avi"_s), folder.file(u"avi.ico"_s));
    EXPECT_EQ(standardIcon(folder.path(), u"avi"_s), folder.file(u"icons/avi.ico"_s));
}

TEST_F(TypeIcons, OfARegisteredTypeAreTheThemesForItsContent)
{
    makeIcon(folder.file(u"avi.ico"_s), 64, Qt::red);
    registerType(u"avi"_s);
    for (const int size : {16, 32, 48, 64}) {
        EXPECT_EQ(themeIcon(size, u"video-x-msvideo"_s).size(), QSize(size, size));
        EXPECT_EQ(themeIcon(size, u"vxavifile"_s).pixelColor(5, 5), QColor(Qt::red));
    }
    EXPECT_TRUE(themeIcon(128, u"video-x-msvideo"_s).isNull()); // nothing is enlarged
}

TEST_F(TypeIcons, AnotherIconTakesThePlaceOfTheFirst)
{
    makeIcon(folder.file(u"avi.ico"_s), 64, Qt::red);
    registerType(u"avi"_s);
    makeIcon(folder.file(u"avi.ico"_s), 32, Qt::blue);
    registerType(u"avi"_s);
    EXPECT_EQ(themeIcon(32, u"video-x-msvideo"_s).pixelColor(5, 5), QColor(Qt::blue));
    EXPECT_TRUE(themeIcon(64, u"video-x-msvideo"_s).isNull());
}

TEST_F(TypeIcons, OfATypeThatIsNotRegisteredAreKeptUnderItsOwnName)
{
    makeIcon(folder.file(u"avi.ico"_s), 32, Qt::red);
    registry.RegWriteString(kClasses, u"vxavifile\\DefaultIcon"_s, {},
                            folder.path() + u"\\avi.ico"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !registry.isWorkingInBackground(); }, 20000));
    EXPECT_FALSE(themeIcon(32, u"vxavifile"_s).isNull());
    EXPECT_TRUE(themeIcon(32, u"video-x-msvideo"_s).isNull());
}

TEST_F(TypeIcons, GoFromTheThemeWhenTheTypeIsGivenBack)
{
    makeIcon(folder.file(u"avi.ico"_s), 32, Qt::red);
    registerType(u"avi"_s);
    setOwner(u"avi"_s, {});
    EXPECT_TRUE(themeIcon(32, u"video-x-msvideo"_s).isNull());
    EXPECT_FALSE(themeIcon(32, u"vxavifile"_s).isNull());
}

TEST_F(TypeIcons, IconsOfOtherMakersInTheUsersThemeAreLeftAlone)
{
    const QString file = themeFile(32, u"video-x-msvideo"_s);
    QDir().mkpath(QFileInfo(file).path());
    QImage picture(32, 32, QImage::Format_ARGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(file));
    makeIcon(folder.file(u"avi.ico"_s), 32, Qt::red);
    registerType(u"avi"_s);
    EXPECT_EQ(themeIcon(32, u"video-x-msvideo"_s).pixelColor(5, 5), QColor(Qt::green));
    setOwner(u"avi"_s, {});
    EXPECT_EQ(themeIcon(32, u"video-x-msvideo"_s).pixelColor(5, 5), QColor(Qt::green));
}

TEST_F(TypeIcons, AMissingOrBrokenIconFileGivesTheThemeNothing)
{
    registerType(u"nothing"_s);
    EXPECT_FALSE(room.has(u"data/icons/hicolor/16x16"));
    folder.write(u"broken.ico"_s, "no picture");
    registerType(u"broken"_s);
    EXPECT_FALSE(room.has(u"data/icons/hicolor/16x16"));
}

TEST_F(TypeIcons, TheFirstExtensionOfATypeGivesItItsIcon)
{
    makeIcon(folder.file(u"mpg.ico"_s), 32, Qt::red);
    makeIcon(folder.file(u"mpeg.ico"_s), 32, Qt::blue);
    registerType(u"mpg"_s);
    registerType(u"mpeg"_s);
    EXPECT_EQ(themeIcon(32, u"video-mpeg"_s).pixelColor(5, 5), QColor(Qt::red));
    EXPECT_EQ(themeIcon(32, u"vxmpegfile"_s).pixelColor(5, 5), QColor(Qt::blue));
    setOwner(u"mpg"_s, {});
    EXPECT_FALSE(themeIcon(32, u"video-mpeg"_s).isNull());
}

} // namespace orvanta
