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
    {"core/ini.cpp", "\"platform/registry.h\"", false},
    {"platform/registry.cpp", "\"core/ini.h\"", true},
    {"platform/registry.cpp", "\"player/model/module1.h\"", false},
    {"platform/media_locator.cpp", "<QtWidgets/QWidget>", false},
    {"platform/media_locator.cpp", "\"platform/video_surface.h\"", false},
    {"platform/mpv_handle.h", "<mpv/client.h>", true},
    {"platform/video_surface.h", "<QWidget>", true},
    {"player/model/loaders.cpp", "\"platform/media_locator.h\"", true},
    {"player/model/loaders.cpp", "\"playback/advance.h\"", false},
    {"player/model/loaders.cpp", "\"player/window/skin.h\"", false},
    {"player/model/loaders.cpp", "\"player/start_up.h\"", false},
    {"player/model/loaders.cpp", "<QLabel>", false},
    {"playback/advance.cpp", "\"player/model/module1.h\"", true},
    {"playback/advance.cpp", "\"player/window/form2_main_window.h\"", false},
    {"playback/advance.cpp", "<QWidget>", false},
    {"playback/advance.cpp", "<mpv/client.h>", false},
    {"playback/form13_video_window.cpp", "<QWidget>", true},
    {"playback/form13_video_window.cpp", "\"platform/video_surface.h\"", true},
    {"playback/playback_engine.cpp", "\"playback/form13_video_window.h\"", false},
    {"player/window/skin.cpp", "<QWidget>", true},
    {"player/window/skin.cpp", "\"editors/form5_packet_editor.h\"", false},
    {"system/form8_options.cpp", "\"player/window/skin.h\"", false},
    {"player/start_up.cpp", "\"player/window/form2_main_window.h\"", true},
    {"player/window/skin.cpp", "\"player/start_up.h\"", false},
    {"tests/core/ini_test.cpp", "\"player/window/skin.h\"", true},
    {"bench/play_bench.cpp", "<mpv/client.h>", true},
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
