// Fifty lessons made by chance, boxed with their pages, the originals gone, the boxes read-only:
// every line of them plays, for a user who has made none of it.
#include "tests/companions/cdcreate/random_lesson.h"
#include "tests/companions/page/page_fixture.h"

#include <QDir>
#include <QProcess>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class RandomLessons : public PageTest, public testing::TestWithParam<quint32>
{
protected:
    RandomLessons()
        : PageTest(startChromiumAsPlainUser())
    {}

    static int run(const QString& program, const QStringList& arguments)
    {
        return QProcess::execute(program, arguments);
    }

    void playBoxed(QRandomGenerator& random)
    {
        const QTemporaryDir room;
        run(u"chmod"_s, {u"755"_s, room.path()});
        const QString box = room.filePath(u"box"_s);
        const RandomLesson lesson = makeRandomLesson(random, room.filePath(u"home/Lessons"_s));
        ASSERT_EQ(run(QStringLiteral(ORVANTA_BUILD_DIR "/companions/cdcreate"),
                      {u"--out"_s, box, u"--web"_s, lesson.document}),
                  0);
        ASSERT_TRUE(QDir(room.filePath(u"home"_s)).removeRecursively());
        run(u"chmod"_s, {u"-R"_s, u"a-w,a+rX"_s, box});
        playPage(box + u"/index.html"_s, lesson.lines);
        run(u"chmod"_s, {u"-R"_s, u"u+w"_s, box});
    }

    void playPage(const QString& page, int lines)
    {
        openPage(page);
        browser->press(u" "_s);
        EXPECT_TRUE(waitForEnd()) << qPrintable(played().join(u", "));
        EXPECT_EQ(played().size(), lines) << qPrintable(played().join(u", "));
        EXPECT_EQ(unplayable().join(u", ").toStdString(), "");
        // The pictures of these lessons are none; nothing else may be missing.
        EXPECT_EQ(browser->complaints().join(u", ").toStdString(), "");
    }
};

TEST_P(RandomLessons, PlayToTheirEndsFromABox)
{
    QRandomGenerator random(GetParam());
    for (int i = 0; i < 10 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        playBoxed(random);
    }
}

INSTANTIATE_TEST_SUITE_P(Chromium, RandomLessons, testing::Values(1, 2, 3, 4, 5));

} // namespace orvanta::test
