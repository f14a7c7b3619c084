#include "model/loaders.h"
#include "platform/process/known_places.h"
#include "tests/window/window_fixture.h"
#include "window/edit_notice.h"
#include "window/missing_clips.h"

#include <QDir>
#include <QPushButton>
#include <QSignalSpy>

namespace orvanta::test {

namespace {

class MissingClipsTest : public Form2Test
{
protected:
    MissingClipsTest() { setPlacesFile(home.file(u"platform.ini"_s)); }
    ~MissingClipsTest() override { setPlacesFile({}); }

    QString packet(const QString& name, const QStringList& paths) const
    {
        QDir(home.path()).mkpath(QFileInfo(name).path());
        QString text = u"[main]\nfiles=%1\n"_s.arg(paths.size());
        for (qsizetype i = 1; i <= paths.size(); ++i) {
            text += u"[file%1]\npath=%2\ntext=Clip %1\n"_s.arg(QString::number(i), paths[i - 1]);
        }
        return home.write(name, text.toUtf8());
    }
    void open(const QString& document)
    {
        show();
        (document.endsWith(u"vxg") ? OpenGroup : OpenPacket)(module.playlist, document);
        window->RebuildTree();
        waitUntilChecked();
    }
    void waitUntilChecked() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window->missingClips().isBusy(); }, 60'000));
    }
    void press(std::size_t button) const
    {
        ASSERT_LT(button, window->Notice->buttons().size());
        window->Notice->buttons()[button]->click();
    }
    [[nodiscard]] QString describe(int line) const
    {
        return window->List1->model()
            ->index(line, 0)
            .data(Qt::AccessibleDescriptionRole)
            .toString();
    }
};

} // namespace

TEST_F(MissingClipsTest, AClipThatIsNotThereHasItsReasonAndIsCountedAboveTheList)
{
    home.write(u"a.avi"_s, "x");
    open(packet(u"p.vxl"_s, {u"a.avi"_s, u"C:\\Old\\b.avi"_s, u"http://host/c.avi"_s}));
    EXPECT_EQ(window->Notice->text(), u"2 of 3 clips are missing");
    EXPECT_EQ(window->List1->whyMissing(2), QString());
    EXPECT_EQ(window->List1->whyMissing(3), u"Not found: C:\\Old\\b.avi");
    EXPECT_EQ(describe(3), u"Not found: C:\\Old\\b.avi");
    EXPECT_EQ(describe(4), u"Not a file that can be played: http://host/c.avi");
    press(1);
    EXPECT_EQ(window->Notice->text(), QString());
    EXPECT_FALSE(window->List1->whyMissing(3).isEmpty()); // the list still says it
}

TEST_F(MissingClipsTest, WhenEverythingIsThereNothingIsSaid)
{
    home.write(u"B.avi"_s, "x");
    open(packet(u"p.vxl"_s, {u"C:\\Old\\b.avi"_s}));
    EXPECT_EQ(window->Notice->text(), QString());
    EXPECT_EQ(window->List1->whyMissing(2), QString());
}

TEST_F(MissingClipsTest, TheToolTipsSecondLineSaysWhatIsMissing)
{
    open(packet(u"p.vxl"_s, {u"C:\\Old\\b.avi"_s}));
    const QPoint place(60, 2 * window->List1->rowHeight() + 3);
    QTest::mouseMove(window->List1->viewport(), place);
    Q_EMIT window->List1->pointerMoved(place.y());
    EXPECT_EQ(window->List1->toolTip(), u"Clip 1\nNot found: C:\\Old\\b.avi");
}

TEST_F(MissingClipsTest, OfAPacketWithBrakesAllLinesLackTheirOneFile)
{
    open(home.write(u"p.vxl"_s, "[main]\nfiles=1\nfile=x.avi\nbrakes=2\n"
                                "[brake1]\ntime=0\ntext=A\n[brake2]\ntime=5\ntext=B\n"));
    EXPECT_EQ(window->Notice->text(), u"1 of 1 clips are missing");
    for (int line = 1; line <= 3; ++line) {
        EXPECT_TRUE(window->List1->whyMissing(line).endsWith(u"x.avi")) << line;
    }
}

TEST_F(MissingClipsTest, TheyAreLookedForInAFolderThatIsRemembered)
{
    QDir(home.path()).mkpath(u"elsewhere/new/1"_s);
    home.write(u"elsewhere/new/1/b.avi"_s, "x");
    const QString document =
        packet(u"lesson/p.vxl"_s, {u"C:\\Old\\1\\b.avi"_s, u"C:\\Old\\1\\c.avi"_s});
    const QByteArray before = home.bytes(u"lesson/p.vxl"_s);
    open(document);
    ASSERT_EQ(window->Notice->text(), u"2 of 2 clips are missing");
    chosenFolder = home.file(u"elsewhere"_s);
    press(0);
    waitUntilChecked();
    EXPECT_EQ(window->Notice->text(), u"1 of 2 clips are missing");
    EXPECT_EQ(window->List1->whyMissing(2), QString());
    EXPECT_FALSE(window->List1->whyMissing(3).isEmpty());
    EXPECT_EQ(home.bytes(u"lesson/p.vxl"_s), before);
    const QString ini = home.file(u"platform.ini"_s);
    EXPECT_EQ(ReadIni(u"moved"_s, u"from1"_s, ini), u"C:\\Old");
    EXPECT_EQ(ReadIni(u"moved"_s, u"to1"_s, ini), home.file(u"elsewhere/new"_s));
}

TEST_F(MissingClipsTest, AFolderWithoutThemIsSaidToHaveNone)
{
    QDir(home.path()).mkpath(u"empty"_s);
    open(packet(u"lesson/p.vxl"_s, {u"C:\\Old\\b.avi"_s}));
    press(0); // nothing is chosen
    EXPECT_EQ(window->Notice->text(), u"1 of 1 clips are missing");
    chosenFolder = home.file(u"empty"_s);
    press(0);
    waitUntilChecked();
    EXPECT_EQ(window->Notice->text(), u"None of the missing clips is in that folder");
    EXPECT_FALSE(QFile::exists(home.file(u"platform.ini"_s)));
}

TEST_F(MissingClipsTest, PacketsOfAGroupAreCountedAndComeBackWhenTheyAreFound)
{
    home.write(u"a.avi"_s, "x");
    (void)packet(u"far/One.vxl"_s, {home.file(u"a.avi"_s)});
    QDir(home.path()).mkpath(u"lesson"_s);
    open(home.write(u"lesson/g.vxg"_s,
                    "[main]\nfiles=1\n[file1]\npath=C:\\Course\\one.vxl\ntext=One\n"));
    ASSERT_EQ(window->Notice->text(), u"1 of 1 packets are missing");
    EXPECT_EQ(window->List1->whyMissing(1), u"Not found: C:\\Course\\one.vxl");
    chosenFolder = home.file(u"far"_s);
    press(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return module.playlist.entryCount() == 1; }, 60'000));
    waitUntilChecked();
    EXPECT_EQ(window->Notice->text(), QString());
}

TEST_F(MissingClipsTest, WhatIsDroppedOnAListIsLookedForToo)
{
    home.write(u"a.avi"_s, "x");
    open(packet(u"p.vxl"_s, {u"a.avi"_s}));
    EXPECT_EQ(window->Notice->text(), QString());
    Q_EMIT window->List1->filesDropped({packet(u"q.vxl"_s, {u"/gone/b.avi"_s})});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->Notice->text().isEmpty(); }));
    EXPECT_EQ(window->Notice->text(), u"1 of 2 clips are missing");
    EXPECT_EQ(window->List1->whyMissing(4), u"Not found: /gone/b.avi");
}

TEST_F(MissingClipsTest, AnotherLessonTakesTheLineAway)
{
    open(packet(u"p.vxl"_s, {u"C:\\Old\\b.avi"_s}));
    ASSERT_FALSE(window->Notice->text().isEmpty());
    clearPlaylist(module.playlist);
    window->clearList();
    waitUntilChecked();
    EXPECT_EQ(window->Notice->text(), QString());
}

TEST_F(MissingClipsTest, AnUrgentLineAboveTheListStays)
{
    show();
    OpenPacket(module.playlist, packet(u"p.vxl"_s, {u"C:\\Old\\b.avi"_s}));
    window->RebuildTree();
    window->Notice->say(u"not saved"_s, {});
    waitUntilChecked();
    EXPECT_EQ(window->List1->whyMissing(2), u"Not found: C:\\Old\\b.avi");
    EXPECT_EQ(window->Notice->text(), u"not saved");
}

TEST_F(MissingClipsTest, TheWindowIsUsableWhileALongListIsChecked)
{
    QStringList paths;
    for (int i = 0; i < 32'767; ++i) {
        paths.append(u"C:\\Old\\%1.avi"_s.arg(i));
    }
    const QString document = packet(u"p.vxl"_s, paths);
    show();
    OpenPacket(module.playlist, document);
    window->RebuildTree();
    int turns = 0; // of the event loop, while it is checked
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            ++turns;
            return !window->missingClips().isBusy();
        },
        120'000));
    EXPECT_GT(turns, 3);
    EXPECT_EQ(window->missingClips().missing().size(), 32'767U);
}

} // namespace orvanta::test
