// What is asked of the player library while it takes no more requests.
#include "platform/media/mpv_handle.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvanta {

namespace {

class Requests : public testing::Test
{
protected:
    /// More than the library takes while nobody reads its answers.
    static constexpr int kMany = 3000;

    Requests()
    {
        mpv.initialize();
        QObject::connect(&mpv, &MpvHandle::eventsWaiting, &mpv, [this] { readAnswers(); });
    }

    void readAnswers()
    {
        while (const mpv_event* event = mpv.nextEvent()) {
            lastAnswer = event->event_id == MPV_EVENT_GET_PROPERTY_REPLY ? event->reply_userdata
                                                                         : lastAnswer;
            answers += event->event_id == MPV_EVENT_GET_PROPERTY_REPLY ? 1 : 0;
        }
    }

    [[nodiscard]] double volume()
    {
        double value = 0;
        mpv_get_property(mpv.get(), "volume", MPV_FORMAT_DOUBLE, &value);
        return value;
    }

    MpvHandle mpv;
    quint64 lastAnswer = 0;
    int answers = 0;
};

} // namespace

TEST_F(Requests, ThatTheLibraryDoesNotTakeYetAreMadeAgainInTheirOrder)
{
    for (int i = 1; i <= kMany; ++i) {
        mpv.set("volume", static_cast<double>(i % 90));
        mpv.ask("volume", MPV_FORMAT_DOUBLE, static_cast<quint64>(i));
    }
    mpv.set("volume", 95.0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == kMany && volume() == 95; }, 60000));
    EXPECT_EQ(lastAnswer, static_cast<quint64>(kMany));
}

} // namespace orvanta
