// "CD Create" from the menu, by keyboard; and what it has made, played to its end.

#include "tests/companions/cdcreate/box_places.h"
#include "tests/companions/cdcreate/random_lesson.h"
#include "tests/e2e/support/end_to_end.h"

#include <QDir>
#include <QSet>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class CdCreate : public EndToEnd
{
protected:
    [[nodiscard]] bool opensByTheMenu()
    {
        return waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }) &&
               window().clickInMenu(u"Tools..."_s, {2, 3}) &&
               waitFor([this] { return desktop.visibleWindows(u"CD Create"_s) == 1; }) &&
               desktop.activate(u"CD Create"_s);
    }

    [[nodiscard]] QString homeFolder() const { return desktop.environment().value(u"HOME"_s); }

    /// Runs the built program at a terminal.
    void makeBox(const QString& lesson, const QString& target)
    {
        OwnedProcess process;
        process.setProcessEnvironment(desktop.environment());
        process.start(QStringLiteral(ORVANTA_BUILD_DIR "/cdcreate"), {u"--out"_s, target, lesson});
        ASSERT_TRUE(process.waitForFinished(kPatienceMs));
        ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    }
};

TEST_F(CdCreate, OfTheMenuPacksWhatIsOpenByKeyboardAlone)
{
    const QString clip = media(u"short.mp4"_s);
    const QString lesson = writeClips(file(u"My lesson.vxl"_s), {{clip, u"A clip"_s}});
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(loads(1, 1));
    ASSERT_TRUE(opensByTheMenu());
    const QString box = homeFolder() + u"/My lesson"_s;
    // The key does nothing before the clips are found.
    ASSERT_TRUE(waitFor([&] {
        desktop.press(u"alt+x"_s);
        return QFile::exists(box + u"/My lesson.vxg"_s);
    }));
    EXPECT_TRUE(QFile::exists(box + u"/media/"_s + QFileInfo(clip).fileName()));
    EXPECT_EQ(test::namesIn(homeFolder()).filter(u"box-part"_s), QStringList());
    ASSERT_TRUE(desktop.activate(u"CD Create"_s));
    desktop.press(u"Escape"_s);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"CD Create"_s) == 0; }));
    EXPECT_TRUE(program.isRunning());
}

TEST_F(CdCreate, OfAnEmptyPlayerOpensItsWindowAndNeverEndsThePlayer)
{
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(opensByTheMenu());
    desktop.press(u"alt+x"_s); // nothing to begin with
    desktop.press(u"Escape"_s);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"CD Create"_s) == 0; }));
    EXPECT_TRUE(program.isRunning());
}

TEST_F(CdCreate, FiftyBoxesWithoutTheirOriginalsPlayToTheEnd)
{
    QRandomGenerator random(50);
    const QStringList forms = {u""_s, u".iso"_s, u".zip"_s};
    QStringList groups;
    for (int i = 0; i < 50; ++i) {
        const QString folder = file(u"home%1"_s.arg(i));
        const test::RandomLesson lesson = test::makeRandomLesson(random, folder + u"/lesson"_s);
        const QString box = file(u"box%1"_s.arg(i)) + forms[i % 3];
        ASSERT_NO_FATAL_FAILURE(makeBox(lesson.document, box));
        ASSERT_TRUE(QDir(folder).removeRecursively());
        const QString taken = test::takenOut(box, file(u"taken%1"_s.arg(i)));
        const QStringList made = QDir(taken).entryList({u"*.vxg"_s});
        ASSERT_EQ(made.size(), 1);
        groups.append(taken + u'/' + made.front());
    }
    home.setOption(u"acp"_s, true); // the end of all closes the program
    program.start(groups);
    constexpr int kMinutes = 4;
    ASSERT_TRUE(program.waitForEnd(kMinutes * 60'000)) << program.said();
    EXPECT_EQ(program.exitStatus(), 0);
    const QRegularExpression loaded(u"loaded (\\d+) packets"_s);
    const int packets =
        loaded.match(program.linesMatching(u"loaded "_s).last()).captured(1).toInt();
    EXPECT_GE(packets, 50);
    QSet<QString> started;
    for (const QString& line : program.linesMatching(u"playback: start "_s)) {
        started.insert(line.section(u"start "_s, 1).section(u' ', 0, 0));
    }
    EXPECT_EQ(started.size(), packets) << program.said();
    const QStringList errors = program.linesMatching(u"orvanta.errors: "_s);
    EXPECT_EQ(errors, QStringList()) << qPrintable(errors.join(u'\n'));
}

} // namespace orvanta::e2e
