#include "tests/e2e/support/steered.h"

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

void Steered::playLesson()
{
    const QString lesson =
        writeClips(file(u"lesson.vxl"_s), {{media(u"video200.mp4"_s), u"Lesson"_s}});
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(plays(u"start 1 1 Lesson"_s));
    ASSERT_TRUE(becomes(u"Playing"_s));
    ASSERT_TRUE(videoIsInWindow());
}

bool Steered::becomes(const QString& status)
{
    return waitFor([&] { return controls.status() == status; });
}

bool Steered::comesBetween(double from, double to)
{
    double now = 0;
    const bool there = waitFor([&] {
        now = controls.seconds();
        return now >= from && now <= to;
    });
    EXPECT_TRUE(there) << "at " << now << " s";
    return there;
}

bool Steered::volumeBecomes(int percent)
{
    return waitFor([&] { return controls.volume() == percent; });
}

void Steered::goTo(double seconds)
{
    controls.seekTo(seconds);
    // On a busy machine the clip has gone on a little before it is looked at.
    EXPECT_TRUE(comesBetween(seconds - 0.5, seconds + 15));
}

bool Steered::videoFillsScreen()
{
    return waitFor([this] { return videoPlace() == QRect(QPoint(), desktop.screenSize()); });
}

bool Steered::videoIsInWindow()
{
    return waitFor([this] {
        const QSize size = videoPlace().size();
        return !size.isEmpty() && size.width() < desktop.screenSize().width();
    });
}

} // namespace orvanta::e2e
