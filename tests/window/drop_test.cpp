// Files dropped on the playlist.
#include "core/packet_file.h"
#include "tests/window/window_fixture.h"

#include <QDir>
#include <QMimeData>
#include <QUrl>

namespace orvanta::test {
namespace {

class DropTest : public Form2Test
{
protected:
    void SetUp() override { show(); }

    /// The drop's own event; true when the list took it. What follows runs from the queue.
    bool drop(const QMimeData& data)
    {
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window->List1->viewport(), &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent dropped(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window->List1->viewport(), &dropped);
        return dropped.isAccepted();
    }

    void dropFiles(const QStringList& files)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files) {
            urls.append(QUrl::fromLocalFile(file));
        }
        data.setUrls(urls);
        ASSERT_TRUE(drop(data));
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QString clip(const QString& name) const { return home.write(name, "media"); }

    const PlaylistEntry& packet(Int16 p) { return module.playlist.packet(p); }
};

TEST_F(DropTest, ThreeClipsOnAnEmptyListMakeOnePacketInReverseOrder)
{
    dropFiles({clip(u"a.avi"_s), clip(u"b.avi"_s), clip(u"c.avi"_s)});
    EXPECT_EQ(module.playlist.PlaylistCount, 1);
    EXPECT_EQ(packet(1).Title, u"!Orvanta! 3.3"_s);
    ASSERT_EQ(packet(1).ClipCount, 3);
    EXPECT_TRUE(packet(1).clip(1).Path.endsWith(u"/c.avi"_s));
    EXPECT_TRUE(packet(1).clip(3).Path.endsWith(u"/a.avi"_s));
    EXPECT_EQ(window->List1->lines().size(), 5U);
}

TEST_F(DropTest, TheListTakesTheDropBeforeItsFilesAreRead)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(clip(u"a.avi"_s))});
    EXPECT_TRUE(drop(data));
    EXPECT_EQ(module.playlist.PlaylistCount, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(module.playlist.PlaylistCount, 1);
}

TEST_F(DropTest, TextsAndPicturesAreNotTaken)
{
    QMimeData data;
    data.setText(u"a.avi"_s);
    EXPECT_FALSE(drop(data));
}

TEST_F(DropTest, TheFirstFilesFolderIsTheOneOpenedLastAndTheProgramsOwnStays)
{
    ASSERT_TRUE(QDir(home.path()).mkpath(u"first"_s));
    const QString before = QDir::currentPath();
    dropFiles({clip(u"first/a.avi"_s), clip(u"b.avi"_s)});
    EXPECT_EQ(module.playlist.PacketFolder, home.file(u"first/"_s));
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(DropTest, MarksAndTheCurrentLineStayWhenTheListGrows)
{
    dropFiles({clip(u"a.avi"_s), clip(u"b.avi"_s)});
    window->setListIndex(3);
    QTest::mouseClick(window->List1->viewport(), Qt::LeftButton, {}, boxOfRow(2));
    ASSERT_FALSE(window->isLineChecked(2));
    dropFiles({clip(u"c.avi"_s)});
    EXPECT_EQ(window->List1->lines().size(), 5U);
    EXPECT_FALSE(window->isLineChecked(2));
    EXPECT_TRUE(window->isLineChecked(4));
    EXPECT_EQ(window->List1->cursorLine(), 3);
    EXPECT_EQ(listedTexts()[3], textWithPrefix(treeLines(module.playlist)[3]));
}

TEST_F(DropTest, ADropThatAddsNothingLeavesMarksAndTheCurrentLine)
{
    dropFiles({clip(u"a.avi"_s), clip(u"b.avi"_s)});
    window->setListIndex(3);
    QTest::mouseClick(window->List1->viewport(), Qt::LeftButton, {}, boxOfRow(2));
    ASSERT_TRUE(QDir(home.path()).mkpath(u"empty"_s));
    dropFiles({home.file(u"empty"_s)});
    EXPECT_EQ(window->List1->lines().size(), 4U);
    EXPECT_FALSE(window->isLineChecked(2));
    EXPECT_EQ(window->List1->cursorLine(), 3);
}

TEST_F(DropTest, AClipDroppedWithAutoStartPlays)
{
    option("as");
    dropFiles({clip(u"a.avi"_s)});
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == control.Running; }));
    EXPECT_TRUE(control.FileName().endsWith(u"/a.avi"_s));
}

TEST_F(DropTest, APacketThatIsNoneIsReportedAndWhatCameBeforeStays)
{
    const QString bad = home.write(u"bad.vxl"_s, "[main]\r\nfiles=many\r\n");
    dropFiles({bad, clip(u"a.avi"_s)});
    EXPECT_EQ(reported, ErrorNumber::TypeMismatch);
    EXPECT_EQ(packet(1).ClipCount, 1);
}

TEST_F(DropTest, APacketThatDoesNotExistIsReported)
{
    dropFiles({home.file(u"gone.vxl"_s)});
    EXPECT_EQ(reported, ErrorNumber::TypeMismatch);
}

TEST_F(DropTest, AFileWhoseFolderIsGoneIsReported)
{
    dropFiles({u"/no/such/folder/a.avi"_s});
    EXPECT_EQ(reported, ErrorNumber::PathNotFound);
    EXPECT_EQ(module.playlist.PlaylistCount, 0);
}

TEST_F(DropTest, AFileOfTheRootFolderIsTaken)
{
    dropFiles({u"/a.avi"_s});
    EXPECT_FALSE(reported.has_value());
    EXPECT_EQ(module.playlist.PlaylistCount, 1);
}

TEST_F(DropTest, AnUpperCasePacketEndingIsAClip)
{
    writeClipListPacket(home.file(u"X.VXL"_s), {u"/a.avi{}a"_s});
    dropFiles({home.file(u"X.VXL"_s)});
    ASSERT_EQ(packet(1).ClipCount, 1);
    EXPECT_TRUE(packet(1).clip(1).Path.endsWith(u"/X.VXL"_s));
}

} // namespace
} // namespace orvanta::test
