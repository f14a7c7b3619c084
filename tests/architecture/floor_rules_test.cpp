#include "tests/architecture/floor_rules.h"

#include <QFileInfo>
#include <QLibraryInfo>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char* file;
    const char* include; // with its marks
    bool isAllowed;
};

Include includeOf(const Row& row)
{
    return includesOf(u"#include "_s + QString::fromLatin1(row.include)).value(0);
}

std::string named(const Row& row)
{
    return std::string(row.file) + " including " + row.include;
}

constexpr Row kRows[] = {
    {"core/ini.cpp", "\"core/ini.h\"", true},
    {"core/ini.cpp", "<QString>", true},
    {"core/ini.cpp", "<QtCore/QString>", true},
    {"core/ini.cpp", "<vector>", true},
    {"core/ini.cpp", "<QImage>", false},
    {"core/ini.cpp", "<QWidget>", false},
    {"core/ini.cpp", "\"platform/file_types/registry.h\"", false},
    {"platform/file_types/registry.cpp", "\"core/ini.h\"", true},
    {"platform/file_types/registry.cpp", "\"model/module1.h\"", false},
    {"platform/process/media_locator.cpp", "<QtWidgets/QWidget>", false},
    {"platform/process/media_locator.cpp", "\"platform/media/video_surface.h\"", false},
    {"platform/file_types/type_icons.cpp", "\"platform/process/application_folder.h\"", true},
    {"platform/process/companion.cpp", "\"platform/file_types/registry.h\"", false},
    {"platform/process/companion.cpp", "<mpv/client.h>", false},
    {"platform/screen/x11.h", "<xcb/xcb.h>", true},
    {"window/window_frame.cpp", "<xcb/xcb.h>", false},
    {"platform/file_types/metafile.cpp", "<libwmf/api.h>", true},
    {"playback/picture_reading.cpp", "<libwmf/api.h>", false},
    {"platform/file_types/drawing.cpp", "<QSvgRenderer>", true},
    {"window/skin.cpp", "<QSvgRenderer>", false},
    {"companions/tutorial.cpp", "\"platform/process/companion.h\"", true},
    {"companions/tutorial.cpp", "\"app/start_up.h\"", false},
    {"platform/media/mpv_handle.h", "<mpv/client.h>", true},
    {"platform/media/video_surface.h", "<QWidget>", true},
    {"model/loaders.cpp", "\"platform/process/media_locator.h\"", true},
    {"model/loaders.cpp", "\"playback/advance.h\"", false},
    {"model/loaders.cpp", "\"window/skin.h\"", false},
    {"model/loaders.cpp", "\"app/start_up.h\"", false},
    {"model/loaders.cpp", "<QLabel>", false},
    {"playback/advance.cpp", "\"model/module1.h\"", true},
    {"playback/advance.cpp", "\"window/form2_main_window.h\"", false},
    {"playback/advance.cpp", "<QWidget>", false},
    {"playback/advance.cpp", "<mpv/client.h>", false},
    {"playback/form13_video_window.cpp", "<QWidget>", true},
    {"playback/form13_video_window.cpp", "\"platform/media/video_surface.h\"", true},
    {"playback/overlay_picture.cpp", "<QWidget>", true},
    {"playback/keyboard.cpp", "\"playback/overlay_picture.h\"", false},
    {"playback/playback_engine.cpp", "\"playback/form13_video_window.h\"", false},
    {"window/skin.cpp", "<QWidget>", true},
    {"window/skin.cpp", "\"editors/form5_packet_editor.h\"", false},
    {"system/form8_options.cpp", "\"window/skin.h\"", false},
    {"app/start_up.cpp", "\"window/form2_main_window.h\"", true},
    {"window/skin.cpp", "\"app/start_up.h\"", false},
    {"tests/core/ini_test.cpp", "\"window/skin.h\"", true},
    {"benches/play_bench.cpp", "<mpv/client.h>", true},
};

} // namespace

TEST(FloorRules, ThePathsOfAFileAndItsIncludeDecide)
{
    for (const Row& row : kRows) {
        const QString complaint = complaintAbout(QString::fromLatin1(row.file), includeOf(row));
        EXPECT_EQ(complaint.isNull(), row.isAllowed) << named(row) << complaint.toStdString();
    }
}

/// The rules about Qt's modules look the headers up where Qt says they lie.
TEST(FloorRules, TheHeadersOfQtAreWhereQtSays)
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::HeadersPath);
    EXPECT_TRUE(QFileInfo::exists(folder + u"/QtWidgets/QWidget"_s)) << folder.toStdString();
    EXPECT_TRUE(QFileInfo::exists(folder + u"/QtCore/QString"_s)) << folder.toStdString();
}

TEST(FloorRules, NoSourceIncludesAnythingThatItsFloorForbids)
{
    for (const QString& source : projectSources()) {
        for (const Include& include : includesOf(textOfSource(source))) {
            const QString complaint = complaintAbout(source, include);
            EXPECT_TRUE(complaint.isNull())
                << source.toStdString() << ": " << include.name.toStdString() << ' '
                << complaint.toStdString();
        }
    }
}

} // namespace orvanta::test
