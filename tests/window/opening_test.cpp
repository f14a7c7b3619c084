// The two open buttons.

#include "tests/window/window_fixture.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QThread>
#include <QTimer>

#include <atomic>

namespace orvanta::test {

class Opening : public Form2Test
{
protected:
    void SetUp() override { show(); }
};

TEST_F(Opening, OpenClipAsksForSeveralFilesOfTheRegisteredTypes)
{
    click(window->Image8);
    EXPECT_EQ(pickers.calls, QStringList{u"open several *.avi;*.mp3"_s});
}

/// Counts how often a widget paints.
class PaintCount : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        times += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    std::atomic<int> times = 0;
};

TEST_F(Opening, TheWindowPaintsOnUnderLongWorkButServesNothing)
{
    PaintCount painted;
    window->List1->viewport()->installEventFilter(&painted);
    bool served = false;
    QTimer::singleShot(0, window.get(), [&] { served = true; });
    bool servedMeanwhile = false;
    bool busy = false;
    window->runBusy([&] {
        const int before = painted.times;
        const QDeadlineTimer deadline(20000);
        while (painted.times < before + 3 && !deadline.hasExpired()) {
            QThread::msleep(5);
        }
        busy = QGuiApplication::overrideCursor() != nullptr;
        servedMeanwhile = served;
    });
    EXPECT_GE(painted.times, 3);
    EXPECT_TRUE(busy);
    EXPECT_FALSE(servedMeanwhile);
}

TEST_F(Opening, OpenFileAsksForOnePacketOrGroup)
{
    click(window->Image14);
    EXPECT_EQ(pickers.calls, QStringList{u"open *.vxl;*.vxg"_s});
}

TEST_F(Opening, CancellingLeavesThePlaylist)
{
    addClips(u"before"_s, {u"one"_s});
    window->RebuildTree();
    click(window->Image8);
    click(window->Image14);
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(1));
    EXPECT_EQ(window->lineCount(), 3);
}

TEST_F(Opening, AnEmptyFirstEntryIsNothingChosen)
{
    pickers.answer = {QString(), u"/x/y.avi"_s};
    click(window->Image8);
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(0));
}

TEST_F(Opening, APickerClosedByItsFrameOpensNothingThatWasPickedBefore)
{
    module.picker.PickedFiles = {QString(), writePacket(u"lesson.vxl"_s, {u"one"_s})};
    pickers.closedByFrame = true;
    click(window->Image8);
    click(window->Image14);
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(0));
    EXPECT_EQ(module.picker.PickedFiles.size(), 2);
}

TEST_F(Opening, OpenClipMakesOnePacketOfTheChosenFiles)
{
    addClips(u"before"_s, {u"one"_s});
    pickers.answer = {home.write(u"a.avi"_s, "media"), home.write(u"b.mp3"_s, "media")};
    click(window->Image8);
    EXPECT_EQ(listedTexts(),
              (QStringList{u"!Orvanta!"_s, u"|-- !Orvanta! 3.3"_s, u"   |- a"_s, u"   |- b"_s}));
    EXPECT_EQ(module.playlist.CurrentPacket, Int16(1));
    EXPECT_EQ(module.playlist.CurrentClip, Int16(1));
    EXPECT_EQ(control.FileName(), QString());
}

TEST_F(Opening, TheFirstClipStartsWhenTheOptionSaysSo)
{
    option("as");
    pickers.answer = {home.write(u"a.avi"_s, "media")};
    click(window->Image8);
    EXPECT_EQ(control.FileName(), pickers.answer.first());
}

TEST_F(Opening, TheOptionIsOnOnlyWhenItsTextIsOne)
{
    option("as", u"yes"_s);
    pickers.answer = {home.write(u"a.avi"_s, "media")};
    click(window->Image8);
    EXPECT_EQ(control.FileName(), QString());
}

TEST_F(Opening, ANameThatEndsInASmallLIsAPacket)
{
    pickers.answer = {writePacket(u"lesson.vxl"_s, {u"one"_s, u"two"_s})};
    click(window->Image14);
    EXPECT_EQ(listedTexts(), (QStringList{u"!Orvanta!"_s, u"|-- !Orvanta! 3.3"_s, u"   |- one"_s,
                                          u"   |- two"_s}));
}

TEST_F(Opening, AnyOtherNameIsAGroup)
{
    const QString packet = writePacket(u"lesson.vxl"_s, {u"one"_s});
    for (const QString& name : {u"all.vxg"_s, u"all.VXL"_s}) {
        pickers.answer = {writeDocument(name, {packet, packet}, {u"packet 1"_s, u"packet 2"_s})};
        click(window->Image14);
        EXPECT_EQ(listedTexts(), (QStringList{u"!Orvanta!"_s, u"|-- packet 1"_s, u"|  |- one"_s,
                                              u"|-- packet 2"_s, u"   |- one"_s}));
    }
}

TEST_F(Opening, TheProgramsOwnFolderStaysSoThatAMediumCanBeUnmounted)
{
    const QString before = QDir::currentPath();
    pickers.answer = {writePacket(u"lesson.vxl"_s, {u"one"_s})};
    click(window->Image14);
    EXPECT_EQ(module.playlist.PacketFolder, home.path() + u'/');
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(Opening, ALoaderThatFailsEndsTheOpeningSilentlyAndTheTreeShowsWhatWasRead)
{
    option("as");
    addClips(u"before"_s, {u"one"_s, u"two"_s});
    window->RebuildTree();
    const QString path = home.file(u"bad.vxl"_s);
    WriteIni(u"main"_s, u"files"_s, u"abc"_s, path);
    pickers.answer = {path};
    const LogCapture log("orvanta.errors");
    click(window->Image14);
    EXPECT_EQ(listedTexts(), (QStringList{u"!Orvanta!"_s, u"|-- !Orvanta! 3.3"_s}));
    EXPECT_EQ(control.FileName(), QString());
    EXPECT_FALSE(reported.has_value());
    EXPECT_EQ(LogCapture::lines().size(), 1);
}

TEST_F(Opening, AFolderThatIsGoneEndsTheOpeningSilently)
{
    addClips(u"before"_s, {u"one"_s});
    window->RebuildTree();
    pickers.answer = {home.file(u"gone/lesson.vxl"_s)};
    click(window->Image14);
    EXPECT_EQ(window->lineCount(), 3);
    EXPECT_FALSE(reported.has_value());
}

TEST_F(Opening, WhatTheUserOpensNoLongerCountsAsHandedOver)
{
    module.playlist.OpenedFromExplorer = true;
    pickers.answer = {home.write(u"a.avi"_s, "media")};
    click(window->Image8);
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
}

TEST_F(Opening, LogsWhatWasLoaded)
{
    const LogCapture log("orvanta.playlist");
    pickers.answer = {home.write(u"a.avi"_s, "media"), home.write(u"b.avi"_s, "media")};
    click(window->Image8);
    EXPECT_EQ(LogCapture::lines(), QStringList{u"loaded 1 packets, 2 entries"_s});
}

} // namespace orvanta::test
