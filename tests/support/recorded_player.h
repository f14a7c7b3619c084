// The real media control with everything it reports written down, for the media tests.
#pragma once

#include "platform/media/media_library.h"
#include "tests/support/test_renderer.h"

#include <QSize>
#include <QString>
#include <QTest>

#include <functional>
#include <vector>

namespace orvanta {

/// A file made by make_test_media.sh.
inline QString testClip(const QString& name)
{
    return QStringLiteral(ORVANTA_BUILD_DIR "/test-media/") + name;
}

/// Waits in the event loop until something holds; returns whether it did.
inline bool comesTrue(const std::function<bool()>& condition, int milliseconds = 20000)
{
    return QTest::qWaitFor(condition, milliseconds);
}

struct RecordedPlayer
{
    struct Jump
    {
        double from = 0;
        double to = 0;
        double duration = 0; // as it was then
    };

    explicit RecordedPlayer(const MpvOptionList& options = {{"ao", "null"}},
                            const std::optional<RendererChoice>& choice = test::rendererOfRun())
        : player(makeMediaControl(options, choice))
    {
        QObject::connect(&control, &MediaControl::openComplete, &control, [this](QSize size) {
            opened.append(control.FileName());
            picture = size;
        });
        QObject::connect(&control, &MediaControl::openFailed, &control, [this] { ++failures; });
        QObject::connect(&control, &MediaControl::position, &control, [this] { ++positions; });
        QObject::connect(&control, &MediaControl::durationChange, &control,
                         [this](double seconds) { durations.push_back(seconds); });
        QObject::connect(
            &control, &MediaControl::stateChange, &control,
            [this](MediaControl::State, MediaControl::State state) { states.push_back(state); });
        QObject::connect(&control, &MediaControl::positionChange, &control,
                         [this](double from, double to) {
                             jumps.push_back({from, to, control.Duration()});
                             ends += looksLikeEnd(from, to, control.Duration()) ? 1 : 0;
                         });
    }

    bool open(const QString& name)
    {
        const qsizetype before = opened.size();
        const int failedBefore = failures;
        control.setFileName(testClip(name));
        return comesTrue([&] { return opened.size() > before || failures > failedBefore; }) &&
               opened.size() > before;
    }

    /// Waits for one more failure and returns whether nothing was opened meanwhile.
    bool refuses(const QString& path)
    {
        const int before = failures;
        const qsizetype openedBefore = opened.size();
        control.setFileName(path);
        return comesTrue([&] { return failures > before; }) && opened.size() == openedBefore;
    }

    bool reaches(double seconds)
    {
        return comesTrue([&] { return control.CurrentPosition() >= seconds; });
    }

    bool endsOnceMore()
    {
        const int before = ends;
        return comesTrue([&] { return ends > before; });
    }

    std::unique_ptr<MediaControl> player;
    MediaControl& control = *player;
    QStringList opened;
    QSize picture;
    int failures = 0;
    int positions = 0;
    int ends = 0;
    std::vector<Jump> jumps;
    std::vector<double> durations;
    std::vector<int> states;
};

} // namespace orvanta
