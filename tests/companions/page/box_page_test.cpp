// A lesson of every kind of clip, boxed with its page, the originals gone, plays in the browser.
#include "tests/companions/page/page_fixture.h"
#include "tests/support/metafile_bytes.h"

#include <QDir>
#include <QJsonArray>
#include <QProcess>
#include <QRandomGenerator>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class BoxedPage : public PageTest, public testing::TestWithParam<BrowserKind>
{
protected:
    BoxedPage()
        : PageTest(GetParam())
    {}

    [[nodiscard]] QString file(const QString& name) const { return room.filePath(name); }

    void take(const QString& clip)
    {
        QDir(room.path()).mkpath(u"lesson"_s);
        const QString from = QStringLiteral(ORVANTA_BUILD_DIR "/test-media/") + clip;
        EXPECT_TRUE(QFile::copy(from, file(u"lesson/"_s + clip)));
    }
    QString write(const QString& name, const QByteArray& content)
    {
        QDir(room.path()).mkpath(u"lesson"_s);
        QFile document(file(u"lesson/"_s + name));
        EXPECT_TRUE(document.open(QIODevice::WriteOnly));
        document.write(content);
        return document.fileName();
    }
    /// Makes the box, removes the lesson and opens the page in the box.
    void box(const QString& document)
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral(ORVANTA_BUILD_DIR "/companions/cdcreate"),
                                    {u"--out"_s, file(u"box"_s), u"--web"_s, document}),
                  0);
        ASSERT_TRUE(QDir(file(u"lesson"_s)).removeRecursively());
        openPage(file(u"box/index.html"_s));
    }

    QTemporaryDir room;
};

TEST_P(BoxedPage, PlaysAPacketOfWhatNoBrowserPlays)
{
    for (const QString& clip :
         {u"short.avi"_s, u"short.mkv"_s, u"stream.ts"_s, u"raw.ac3"_s, u"short.webm"_s}) {
        take(clip);
    }
    box(write(u"p.vxl"_s,
              "[main]\nfiles=5\n[file1]\npath=short.avi\ntext=avi\n"
              "[file2]\npath=short.mkv\ntext=mkv\n[file3]\npath=stream.ts\ntext=ts\n"
              "[file4]\npath=raw.ac3\ntext=ac3\n[file5]\npath=short.webm\ntext=webm\n"));
    browser->press(u" "_s);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(played().join(u", ").toStdString(), "avi, mkv, ts, ac3, webm");
    EXPECT_EQ(unplayable().join(u", ").toStdString(), "");
    expectNoComplaints();
    // What was converted lies beside what it was made of.
    EXPECT_EQ(QDir(file(u"box/media"_s)).entryList(QDir::Files).size(), 9);
}

TEST_P(BoxedPage, FollowsTheBrakesOfAConvertedClip)
{
    take(u"whole.avi"_s);
    const QString packet = write(u"b.vxl"_s, "[main]\nfiles=1\nfile=whole.avi\nbrakes=3\n"
                                             "[brake1]\ntime=000000,50\ntext=half\n"
                                             "[brake2]\ntime=000001.20\ntext=later\n"
                                             "[brake3]\ntime=000001.80\ntext=end\n");
    write(u"g.vxg"_s, "[main]\nfiles=1\n[file1]\npath=b.vxl\ntext=Marks\npicture={No picture}\n");
    box(QFileInfo(packet).path() + u"/g.vxg"_s);
    EXPECT_EQ(textOf(u"[aria-level=\"1\"] .said"_s), u"Marks"_s);
    browser->press(u" "_s);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(played().join(u", ").toStdString(), "half, later, end");
    EXPECT_EQ(unplayable().join(u", ").toStdString(), "");
}

TEST_P(BoxedPage, ShowsThePictureOfAPacketOfSounds)
{
    take(u"one.mp3"_s);
    take(u"cover.png"_s);
    write(u"s.vxl"_s, "[main]\nfiles=1\n[file1]\npath=one.mp3\ntext=sound\n");
    box(write(u"g.vxg"_s,
              "[main]\nfiles=1\n[file1]\npath=s.vxl\ntext=Sounds\npicture=cover.png\n"));
    browser->press(u" "_s);
    ASSERT_TRUE(waitForText(u"sound"_s));
    EXPECT_TRUE(browser->waitUntil(u"!document.getElementById('picture').hidden && "
                                   "document.getElementById('picture').naturalWidth === 300"_s));
    EXPECT_TRUE(browser->evaluate(u"document.getElementById('media').hidden"_s).toBool());
    EXPECT_EQ(unplayable().join(u", ").toStdString(), "");
    expectNoComplaints();
}

TEST_P(BoxedPage, ShowsAMetafileToo)
{
    take(u"one.mp3"_s);
    write(u"old.wmf"_s, redMetafile());
    write(u"s.vxl"_s, "[main]\nfiles=1\n[file1]\npath=one.mp3\ntext=sound\n");
    box(write(u"g.vxg"_s, "[main]\nfiles=1\n[file1]\npath=s.vxl\ntext=Old\npicture=old.wmf\n"));
    browser->press(u" "_s);
    EXPECT_TRUE(browser->waitUntil(u"!document.getElementById('picture').hidden && "
                                   "document.getElementById('picture').naturalWidth === 192"_s));
}

static std::string nameOfBrowser(const testing::TestParamInfo<BrowserKind>& kind)
{
    return nameOf(kind.param);
}

INSTANTIATE_TEST_SUITE_P(Browsers, BoxedPage,
                         testing::Values(BrowserKind::Chromium, BrowserKind::Firefox),
                         nameOfBrowser);

} // namespace orvanta::test
