// The video window with a scripted control.
#pragma once

#include "playback/form13_video_window.h"
#include "playback/track_controls.h"
#include "tests/support/scripted_media_control.h"

#include <QImage>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class VideoWindowTest : public testing::Test
{
protected:
    VideoWindowTest() { form.showWindow(true); }

    /// As the engine opens a clip.
    void open(const QString& file, QSize picture)
    {
        control.pictureSize = picture;
        form.prepareForMedia();
        control.setFileName(file);
        ASSERT_TRUE(QTest::qWaitFor([&] { return control.isReady(); }));
        if (hasStill && picture.isEmpty()) { // a busy machine reads it a little later
            (void)QTest::qWaitFor([&] { return form.Image1->isVisible(); });
        }
    }

    QString stillPicture(QSize size, const char* format = "png")
    {
        QString file = folder.filePath(u"still."_s + QString::fromLatin1(format));
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(file, format));
        hasStill = true;
        return file;
    }

    [[nodiscard]] static QRect screen() { return qApp->primaryScreen()->availableGeometry(); }

    ScriptedMediaControl control;
    bool hasStill = false; // one was made
    QWidget* neighbour = nullptr;
    QList<bool> toldAwake;
    QList<Command> asked;
    TextLanguage language = TextLanguage::English;
    std::function<void()> onPlayerKey = [] {};
    QList<int> lineSteps;
    int linesAgain = 0;
    int wentOn = 0;
    bool repeats = false;
    QString roundText;
    std::vector<LessonMark> marks;
    TextLevel storedLevel = TextLevel::Off;
    Practice practised;
    QTemporaryDir folder;
    Module1 module = newModule();
    TrackControls tracks{module, control};
    Form13 form{Form13Services{
        .control = control,
        .boundary = HandlerBoundary(),
        .keepAwake = [this](bool awake) { toldAwake += awake; },
        .carryOut =
            [this](Command command) {
                asked += command;
                onPlayerKey();
                return true;
            },
        .seek = [this](double seconds) { control.setCurrentPosition(seconds); },
        .mainWindow = [this] { return neighbour; },
        .textLevel = [this] { return storedLevel; },
        .setTextLevel = [this](TextLevel level) { storedLevel = level; },
        .language = [this] { return language; },
        .practice = [this] { return practised; },
        .bar = {.previousLine = [this] { lineSteps += -1; },
                .nextLine = [this] { lineSteps += 1; },
                .lineAgain = [this] { ++linesAgain; },
                .marks = [this] { return marks; },
                .toggleRepeat = [this] { repeats = !repeats; },
                .isRepeating = [this] { return repeats; },
                .repeatText = [this] { return roundText; },
                .speed = [this] { return control.Speed(); },
                .goOn = [this] { ++wentOn; }},
        .tracks = &tracks,
    }};

private:
    [[nodiscard]] Module1 newModule() const
    {
        Module1 made;
        made.Language = 1;
        made.IniPath = folder.filePath(u"orvanta.ini"_s);
        return made;
    }
};

} // namespace orvanta::test
