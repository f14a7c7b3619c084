// A window that is open when the desktop's colours change looks as if it had been opened
// afterwards.

#include "tests/captions/every_window.h"

#include <QApplication>
#include <QStyle>
#include <QTest>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

QPalette darkScheme()
{
    QPalette palette(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    return palette;
}

class Scheme : public testing::TestWithParam<WindowOfProgram>
{
protected:
    ~Scheme() override { QApplication::setPalette(m_before); }

    static QImage look(QWidget& window)
    {
        window.show();
        for (int i = 0; i < 5; ++i) { // what is queued, and what that queues
            QCoreApplication::processEvents();
        }
        return window.grab().toImage();
    }

    /// The window as it looks when it was open while the colours changed, and when it is opened
    /// now.
    void compare(const QPalette& from, const QPalette& to)
    {
        // The trees show the folder for temporary files, where others make and remove folders.
        constexpr int kLimitMs = 30'000;
        EXPECT_TRUE(QTest::qWaitFor([&] { return isFollowed(from, to); }, kLimitMs));
    }

    bool isFollowed(const QPalette& from, const QPalette& to)
    {
        QApplication::setPalette(from);
        Surroundings surroundings{1};
        auto window = GetParam().make(surroundings);
        const QImage before = look(*window);
        QApplication::setPalette(to);
        const QImage followed = look(*window);
        if (isInColoursOfDesktop()) {
            EXPECT_NE(before, followed);
        }
        window.reset();
        window = GetParam().make(surroundings);
        const QImage fresh = look(*window);
        if (const QString folder = qEnvironmentVariable("ORVANTA_PICTURES");
            followed != fresh && !folder.isEmpty()) {
            followed.save(folder + u"/%1_followed.png"_s.arg(QLatin1String(GetParam().name)));
            fresh.save(folder + u"/%1_fresh.png"_s.arg(QLatin1String(GetParam().name)));
        }
        return followed == fresh;
    }

    /// The dialogs are; the player itself is dark everywhere.
    static bool isInColoursOfDesktop()
    {
        static constexpr std::array kStarts = {"Form5", "Form6", "Form7",
                                               "Form8", "Form9", "Form10"};
        return std::ranges::any_of(kStarts, [](const char* start) {
            return QByteArrayView(GetParam().name).startsWith(start);
        });
    }

    QPalette m_before = QApplication::palette();
};

} // namespace

TEST_P(Scheme, ThatTurnsDarkIsFollowedByAnOpenWindow)
{
    compare(m_before, darkScheme());
}

TEST_P(Scheme, ThatTurnsLightIsFollowedByAnOpenWindow)
{
    compare(darkScheme(), m_before);
}

static std::string nameOfScheme(const testing::TestParamInfo<WindowOfProgram>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Windows, Scheme, testing::ValuesIn(everyWindow()), nameOfScheme);

} // namespace orvanta::test
