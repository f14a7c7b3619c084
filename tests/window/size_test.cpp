// The main window's size from run to run.
#include "platform/screen/window_basics.h"
#include "tests/window/window_fixture.h"

#include <QFile>
#include <QScreen>

namespace orvanta::test {
namespace {

class WindowSize : public Form2Test
{
protected:
    [[nodiscard]] Settings platform() const { return Settings(home.file(u"platform.ini"_s)); }
    [[nodiscard]] static QSize fitted(QSize size)
    {
        return firstSizeOn(*qApp->primaryScreen(), size);
    }
};

TEST_F(WindowSize, IsTheUsualOneAtFirstWhateverTheWindowHidesAsYet)
{
    EXPECT_EQ(load().size(), fitted({520, 440}));
}

TEST_F(WindowSize, IsWrittenWhenTheProgramEndsAndTakenAtTheNextStart)
{
    show();
    window->resize(600, 470);
    window->resize(610, 480);
    EXPECT_FALSE(QFile::exists(home.file(u"platform.ini"_s))); // not at each step of a hand
    engine->closeProgram();
    EXPECT_EQ(platform().windowSize(), QSize(610, 480));
    window.reset();
    EXPECT_EQ(load().size(), QSize(610, 480));
}

TEST_F(WindowSize, IsWrittenWhenCloseHidesTheWindow)
{
    option("nc");
    show();
    window->resize(610, 480);
    engine->pressClose();
    EXPECT_EQ(platform().windowSize(), QSize(610, 480));
}

TEST_F(WindowSize, IsNotWrittenWhenItIsTheFirstOneStill)
{
    show();
    engine->closeProgram();
    EXPECT_FALSE(QFile::exists(home.file(u"platform.ini"_s)));
}

TEST_F(WindowSize, LeavesTheCodePageThatTheUserWrote)
{
    home.write(u"platform.ini"_s, "[text]\ncodepage=windows-1251\n");
    show();
    window->resize(610, 480);
    engine->closeProgram();
    EXPECT_EQ(platform().codePage(), u"windows-1251"_s);
    EXPECT_EQ(platform().windowSize(), QSize(610, 480));
}

TEST_F(WindowSize, IsMadeToFit)
{
    const QSize first = load().size();
    const QSize least = window->minimumSizeHint();
    const auto loadedFrom = [this](const char* width, const char* height) {
        window.reset();
        home.write(u"platform.ini"_s,
                   QByteArray("[window]\nwidth=") + width + "\nheight=" + height + "\n");
        return load().size();
    };
    EXPECT_EQ(loadedFrom("100000", "90000"), fitted({100000, 90000}));
    EXPECT_EQ(loadedFrom("1", "1"), least);
    EXPECT_EQ(loadedFrom("wide", "480"), first);
    EXPECT_EQ(loadedFrom("-600", "480"), first);
    EXPECT_FALSE(reported.has_value());
}

} // namespace
} // namespace orvanta::test
