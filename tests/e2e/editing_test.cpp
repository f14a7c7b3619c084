// Making a lesson while it plays: marks by keyboard, undo, dragging, what is said about changes.

#include "tests/e2e/editing_fixture.h"
#include "tests/e2e/support/dragging.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Editing : public Edited
{
protected:
    /// A packet of one film of three minutes, which plays.
    void editFilm()
    {
        lesson = writeClips(file(u"lesson.vxl"_s), {{media(u"film180.mp4"_s), u"Film"_s}});
        edit(lesson);
        ASSERT_TRUE(becomes(u"Playing"_s));
    }

    /// Brakes that nothing plays: what is done with them is not hurried.
    void editBrakes()
    {
        home.setOption(u"as"_s, false);
        lesson =
            writeBrakes(file(u"lesson.vxl"_s), media(u"film180.mp4"_s),
                        {{10, u"ten"_s}, {20, u"twenty"_s}, {30, u"thirty"_s}, {60, u"End"_s}});
        edit(lesson);
        ASSERT_TRUE(textsBecome({u"ten"_s, u"twenty"_s, u"thirty"_s, u"End"_s}));
    }

    void editClips()
    {
        home.setOption(u"as"_s, false);
        lesson = writeClips(file(u"lesson.vxl"_s), {{media(u"video2.mp4"_s), u"one"_s},
                                                    {media(u"video3.mp4"_s), u"two"_s},
                                                    {media(u"video15.mp4"_s), u"three"_s}});
        edit(lesson);
        ASSERT_TRUE(textsBecome({u"one"_s, u"two"_s, u"three"_s}));
    }

    /// Saves and waits until there is nothing to save.
    void save()
    {
        key(u"ctrl+s"_s);
        const auto button = bus.control(program.pid(), u"push button"_s, u"Save the changes"_s);
        ASSERT_TRUE(button);
        ASSERT_TRUE(waitFor([&] { return !button->isEnabled(); }));
    }

    /// Undoes or does again until it can no longer.
    void pressUntilDone(const QString& shortcut, const QString& button)
    {
        const auto found = bus.program(program.pid())->find([&](const Accessible& control) {
            return control.role() == u"push button" && control.name().startsWith(button);
        });
        ASSERT_TRUE(found);
        for (int presses = 0; found->isEnabled(); ++presses) {
            ASSERT_LT(presses, 50);
            const QString step = found->name();
            const QStringList before = window().rows();
            key(shortcut);
            ASSERT_TRUE(waitFor([&] {
                return !found->isEnabled() || found->name() != step || window().rows() != before;
            }));
        }
    }

    QString lesson;
};

TEST_F(Editing, TenMarksWithTextsTakeATenthOfTheKeysThatTheyCouldAndNoPause)
{
    static const QStringList kWords = {u"one"_s, u"two"_s,   u"three"_s, u"four"_s, u"five"_s,
                                       u"six"_s, u"seven"_s, u"eight"_s, u"nine"_s, u"ten"_s};
    editFilm();
    QList<QPair<double, double>> moments; // before and after each key
    for (const QString& word : kWords) {
        goTo(10 + 15.0 * static_cast<double>(moments.size()));
        const double before = controls.seconds();
        const QStringList known = texts();
        key(u"Insert"_s);
        // The box over the line opens with it: the letters that follow are its own.
        ASSERT_TRUE(waitFor([&] { return texts() != known; }));
        moments.append({before, controls.seconds()});
        desktop.type(word);
        ASSERT_TRUE(isPlaying());
    }
    key(u"Return"_s);
    save();
    EXPECT_LE(keys, 25);
    RecordProperty("keys", keys);
    EXPECT_EQ(program.linesMatching(u"^orvanta.playback: (stopped|ended)"_s), QStringList())
        << program.said();

    const QList<BrakeLine> brakes = brakesIn(lesson);
    ASSERT_EQ(textsIn(lesson), kWords + QStringList(u"End"_s));
    for (qsizetype i = 0; i < moments.size(); ++i) {
        constexpr double kNear = 0.5; // seconds: what is asked and what is heard differ a little
        EXPECT_GE(brakes[i].seconds, moments[i].first - kNear) << i;
        EXPECT_LE(brakes[i].seconds, moments[i].second + kNear) << i;
    }
    EXPECT_NEAR(brakes.last().seconds, 180, 1);
}

TEST_F(Editing, AllUndoneIsTheOldDocumentAndAllDoneAgainTheNewOne)
{
    editBrakes();
    const QByteArray old = bytesOf(lesson);
    chooseLine(1);
    key(u"F2"_s);
    desktop.type(u"changed"_s);
    key(u"Return"_s);
    ASSERT_TRUE(textsBecome({u"ten"_s, u"changed"_s, u"thirty"_s, u"End"_s}));
    key(u"F2"_s);
    key(u"Tab"_s); // to the time
    desktop.type(u"0:35.5"_s);
    key(u"Return"_s);
    ASSERT_TRUE(textsBecome({u"ten"_s, u"thirty"_s, u"changed"_s, u"End"_s}));
    chooseLine(0);
    key(u"Delete"_s);
    ASSERT_TRUE(textsBecome({u"thirty"_s, u"changed"_s, u"End"_s}));
    save();
    const QByteArray changed = bytesOf(lesson);
    EXPECT_EQ(textsIn(lesson), (QStringList{u"thirty"_s, u"changed"_s, u"End"_s}));
    EXPECT_EQ(brakesIn(lesson).at(1).seconds, 35.5);

    pressUntilDone(u"ctrl+z"_s, u"Undo"_s);
    ASSERT_TRUE(textsBecome({u"ten"_s, u"twenty"_s, u"thirty"_s, u"End"_s}));
    save();
    EXPECT_EQ(bytesOf(lesson), old);

    pressUntilDone(u"ctrl+shift+z"_s, u"Redo"_s);
    ASSERT_TRUE(textsBecome({u"thirty"_s, u"changed"_s, u"End"_s}));
    save();
    EXPECT_EQ(bytesOf(lesson), changed);
}

TEST_F(Editing, IsReadOutTheTimeOfAMarkAndTheStripsNameAndValue)
{
    editFilm();
    goTo(60);
    key(u"Insert"_s);
    desktop.type(u"here"_s);
    key(u"Return"_s);
    ASSERT_TRUE(textsBecome({u"here"_s, u"End"_s}));
    const auto list = bus.control(program.pid(), u"list"_s, u"Playlist"_s);
    ASSERT_TRUE(list);
    static const QRegularExpression kTime(u"at 1:\\d\\d\\.\\d\\d"_s);
    EXPECT_TRUE(list->child(2)->description().contains(kTime))
        << list->child(2)->description().toStdString();
    EXPECT_TRUE(list->child(3)->description().contains(u"end mark at 3:00"_s))
        << list->child(3)->description().toStdString();
    const auto strip = bus.control(program.pid(), u"slider"_s, u"Sound of the clip"_s);
    ASSERT_TRUE(strip);
    EXPECT_TRUE(waitFor([&] { return strip->value() > 60; }));
    EXPECT_TRUE(strip->description().contains(u"of 3:00, 1 mark"_s))
        << strip->description().toStdString();
    strip->setValue(120);
    EXPECT_TRUE(comesBetween(119, 150));
    EXPECT_TRUE(isPlaying());
}

TEST_F(Editing, ALineIsDraggedToAnotherPlace)
{
    editClips();
    const QRect first = placeOfLine(0);
    const QRect last = placeOfLine(2);
    QList<QPoint> way;
    for (int step = 0; step <= 10; ++step) { // as a hand does: in small steps
        way.append(first.center() +
                   QPoint(0, (last.bottom() - 2 - first.center().y()) * step / 10));
    }
    desktop.moveMouse(way.first());
    desktop.holdButton(true);
    for (const QPoint place : way.mid(1)) {
        desktop.moveMouse(place);
    }
    desktop.holdButton(false);
    ASSERT_TRUE(textsBecome({u"two"_s, u"three"_s, u"one"_s}));
    save();
    EXPECT_EQ(ReadIni(u"file3"_s, u"text"_s, lesson), u"one");
    EXPECT_EQ(ReadIni(u"file3"_s, u"path"_s, lesson), media(u"video2.mp4"_s));
}

TEST_F(Editing, AFileDroppedBetweenTwoLinesComesInThere)
{
    editClips();
    Dragging dragging(desktop);
    const QString clip = file(u"between.mp4"_s);
    ASSERT_TRUE(QFile::link(media(u"video2.mp4"_s), clip));
    const QRect second = placeOfLine(1);
    ASSERT_TRUE(dragging.dropFiles({clip}, {second.center().x(), second.top() + 2}));
    ASSERT_TRUE(textsBecome({u"one"_s, u"between"_s, u"two"_s, u"three"_s}));
    save();
    EXPECT_EQ(ReadIni(u"file2"_s, u"path"_s, lesson), clip);
    EXPECT_EQ(ReadIni(u"main"_s, u"files"_s, lesson), u"4");
}

TEST_F(Editing, LeavingItWithChangesSaysSoAndSavesOrDiscardsThem)
{
    editBrakes();
    const QByteArray old = bytesOf(lesson);
    chooseLine(0);
    key(u"Delete"_s);
    ASSERT_TRUE(textsBecome({u"twenty"_s, u"thirty"_s, u"End"_s}));
    key(u"F4"_s);
    ASSERT_TRUE(isShown(u"Discard"_s));
    const auto said =
        bus.control(program.pid(), u"label"_s, u"lesson.vxl is not saved yet; a draft is kept"_s);
    EXPECT_TRUE(said);
    EXPECT_EQ(bytesOf(lesson), old);
    click(u"Discard"_s);
    ASSERT_TRUE(textsBecome({u"ten"_s, u"twenty"_s, u"thirty"_s, u"End"_s}));
    EXPECT_EQ(bytesOf(lesson), old);

    beginEditing();
    chooseLine(0);
    key(u"Delete"_s);
    ASSERT_TRUE(textsBecome({u"twenty"_s, u"thirty"_s, u"End"_s}));
    key(u"F4"_s);
    click(u"Save"_s);
    EXPECT_TRUE(waitFor([&] {
        return textsIn(lesson) == QStringList({u"twenty"_s, u"thirty"_s, u"End"_s});
    }));
    EXPECT_FALSE(QDir(home.file(u"drafts"_s)).entryList(QDir::Files).size() > 0);
}

} // namespace orvanta::e2e
