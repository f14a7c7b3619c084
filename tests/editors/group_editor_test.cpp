#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/editor_room.h"
#include "tests/support/metafile_bytes.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>

namespace orvanta::test {

namespace {

class GroupEditor : public EditorOnScreen<Form6>
{
protected:
    [[nodiscard]] QString temporaryGroup() const { return temporary(u"temp.vxg"_s); }
};

} // namespace

TEST_F(GroupEditor, ListsThePacketsOfTheStoredFolder)
{
    putAll({u"a.vxl"_s, u"b.VXL"_s, u"c.avi"_s});
    open();
    EXPECT_EQ(editor->File1->names(), QStringList({u"a.vxl"_s, u"b.VXL"_s}));
    EXPECT_EQ(editor->FolderTreeview1->folder(), room());
}

TEST_F(GroupEditor, IsRussianForTwoAlone)
{
    module.Language = 2;
    open();
    EXPECT_EQ(editor->windowTitle(), u"Создать группу"_s);
    EXPECT_EQ(editor->Command7->text(), u"..."_s);
    module.Language = 3;
    open();
    EXPECT_EQ(editor->windowTitle(), u"Create group"_s);
}

TEST_F(GroupEditor, ClickingAPacketAddsAMemberOfThreeFields)
{
    put(u"week1.vxl"_s);
    open();
    clickRow(editor->File1, 0);
    EXPECT_EQ(entries(), QStringList({room(u"week1.vxl"_s) + u"{}week1{}{No picture}"_s}));
    EXPECT_EQ(editor->Text1->text(), room(u"week1.vxl"_s));
    EXPECT_EQ(editor->Text2->text(), u"week1"_s);
    EXPECT_EQ(editor->Text3->text(), u"{No picture}"_s);
}

TEST_F(GroupEditor, AddingAFileWithNothingSelectedOverwritesTheFirstMember)
{
    put(u"c.vxl"_s);
    openWith({u"a{}1{}p"_s, u"b{}2{}p"_s});
    clickRow(editor->File1, 0);
    EXPECT_EQ(entries(),
              QStringList({room(u"c.vxl"_s) + u"{}c{}{No picture}"_s, u"b{}2{}p"_s, QString()}));
    EXPECT_EQ(editor->List1->list().selected, 0);
}

TEST_F(GroupEditor, EditingABoxRebuildsTheSelectedMember)
{
    openWith({u"a{}1{}p"_s});
    clickRow(editor->List1, 0);
    typeOver(editor->Text2, u"new"_s);
    EXPECT_EQ(entries(), QStringList({u"a{}new{}p"_s}));
    typeOver(editor->Text3, u"q"_s);
    EXPECT_EQ(entries(), QStringList({u"a{}new{}q"_s}));
}

TEST_F(GroupEditor, EditingABoxWithNothingSelectedAppendsAMember)
{
    openWith({u"a{}1{}p"_s});
    typeOver(editor->Text1, u"x"_s);
    EXPECT_EQ(entries(), QStringList({u"a{}1{}p"_s, u"x{}{}"_s}));
    EXPECT_EQ(editor->List1->list().selected, 1);
}

TEST_F(GroupEditor, AfterAddAllAMemberShowsItsPathWithTheTextAndPictureShownBefore)
{
    put(u"b.vxl"_s);
    openWith({u"a{}text{}picture"_s});
    press(editor->Command8);
    EXPECT_EQ(entries().at(1), room(u"b.vxl"_s) + u"{}b"_s);
    clickRow(editor->List1, 0);
    clickRow(editor->List1, 1);
    EXPECT_EQ(editor->Text1->text(), room(u"b.vxl"_s));
    EXPECT_EQ(editor->Text2->text(), u"text"_s);
    EXPECT_EQ(editor->Text3->text(), u"picture"_s);
    // The entry takes the shown values only when a box is edited.
    EXPECT_EQ(entries().at(1), room(u"b.vxl"_s) + u"{}b"_s);
    typeOver(editor->Text3, u"new"_s);
    EXPECT_EQ(entries().at(1), room(u"b.vxl"_s) + u"{}text{}new"_s);
}

TEST_F(GroupEditor, ClickingAMemberDoesNotRebuildIt)
{
    openWith({u"a{}b{}c{}d"_s, u"e{}f"_s});
    clickRow(editor->List1, 0);
    EXPECT_EQ(editor->Text2->text(), u"b{}c"_s);
    EXPECT_EQ(editor->Text3->text(), u"d"_s);
    EXPECT_EQ(editor->List1->toolTip(), u"a{}b{}c{}d"_s);
    clickRow(editor->List1, 1);
    EXPECT_EQ(entries(), QStringList({u"a{}b{}c{}d"_s, u"e{}f"_s}));
}

TEST_F(GroupEditor, AMemberOfTwoFieldsShowsWhatItWillBeWrittenWith)
{
    openWith({u"/a.vxl{}A"_s, u"/b.vxl{}B{}/p/b.jpg"_s, u"/c.vxl{}C"_s,
              u"/d.vxl{}D{}{No picture}"_s, u"/e.vxl{}E"_s});
    const EntryListView& list = *editor->List1;
    const QStringList texts = {QString(), u"B"_s, u"B · b.jpg"_s, u"D"_s, u"D"_s};
    const QList<bool> lent = {true, false, true, false, true};
    for (int row = 0; row < 5; ++row) {
        EXPECT_EQ(list.lookOf(row).text, texts.at(row)) << row;
        EXPECT_EQ(list.lookOf(row).isLent, lent.at(row)) << row;
        EXPECT_EQ(list.lookOf(row).tip.isEmpty(), !lent.at(row)) << row;
        EXPECT_EQ(list.lookOf(row).aside, entries().at(row).left(6)) << row;
    }
    EXPECT_TRUE(list.lookOf(2).tip.contains(u"above: B · /p/b.jpg"_s));
    const QByteArray saved = savedBy(editor->Command4);
    EXPECT_TRUE(saved.contains("path=/c.vxl\r\ntext=B\r\npicture=/p/b.jpg\r\n"));
    EXPECT_TRUE(saved.contains("path=/a.vxl\r\ntext=\r\npicture=\r\n"));
}

TEST_F(GroupEditor, AChosenPictureGoesIntoTheSelectedMemberAndIsShown)
{
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(room(u"p.bmp"_s)));
    openWith({u"a{}1{}{No picture}"_s});
    clickRow(editor->List1, 0);
    EXPECT_TRUE(editor->Image1->pixmap().isNull());
    pickers.answer = {room(u"p.bmp"_s)};
    press(editor->Command7);
    EXPECT_EQ(pickers.calls,
              QStringList({u"open *.bmp;*.jpg;*.jpeg;*.gif;*.wmf;*.ico;*.png;*.webp"_s}));
    EXPECT_EQ(entries(), QStringList({u"a{}1{}"_s + room(u"p.bmp"_s)}));
    EXPECT_FALSE(editor->Image1->pixmap().isNull());
    EXPECT_LE(editor->Image1->pixmap().width(), editor->Image1->width());
}

TEST_F(GroupEditor, APictureThatIsChosenAgainGoesIntoAMemberThatOnlyShowedIt)
{
    openWith({u"a{}1{}/p.bmp"_s, u"b{}2"_s});
    clickRow(editor->List1, 0);
    clickRow(editor->List1, 1);
    ASSERT_EQ(editor->Text3->text(), u"/p.bmp"_s);
    pickers.answer = {u"/p.bmp"_s};
    press(editor->Command7);
    EXPECT_EQ(entries().at(1), u"b{}1{}/p.bmp"_s);
}

TEST_F(GroupEditor, APictureBesideThePacketIsTheOneOfThisPacket)
{
    for (const auto& [name, colour] : {std::pair(u"red"_s, Qt::red), {u"blue"_s, Qt::blue}}) {
        QDir(room()).mkdir(name);
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(room(name + u"/p.bmp"_s)));
    }
    openWith({room(u"red/a.vxl"_s) + u"{}1{}p.bmp"_s, room(u"blue/b.vxl"_s) + u"{}2{}p.bmp"_s});
    const auto shownColour = [this] { return editor->Image1->pixmap().toImage().pixelColor(5, 5); };
    clickRow(editor->List1, 0);
    EXPECT_EQ(shownColour(), QColor(Qt::red));
    clickRow(editor->List1, 1);
    EXPECT_EQ(shownColour(), QColor(Qt::blue));
}

TEST_F(GroupEditor, APictureIsToldByItsContentAndMayBeAMetafile)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(room(u"misnamed.bmp"_s), "PNG"));
    const QString metafile = put(u"drawing.wmf"_s, redMetafile());
    openWith({u"a{}1{}"_s + room(u"misnamed.bmp"_s), u"b{}2{}"_s + metafile});
    for (int row = 0; row < 2; ++row) {
        clickRow(editor->List1, row);
        const QImage shown = editor->Image1->pixmap().toImage();
        ASSERT_FALSE(shown.isNull()) << row;
        EXPECT_EQ(shown.pixelColor(shown.rect().center()), QColor(Qt::red)) << row;
    }
}

TEST_F(GroupEditor, ACancelledPictureChoiceChangesNothing)
{
    openWith({u"a{}1{}p"_s}, 0);
    press(editor->Command7);
    EXPECT_EQ(entries(), QStringList({u"a{}1{}p"_s}));
}

TEST_F(GroupEditor, APictureThatIsNoneShowsNothing)
{
    put(u"p.bmp"_s, "no picture at all");
    openWith({u"a{}1{}"_s + room(u"p.bmp"_s), u"a{}1{}/gone.jpg"_s});
    clickRow(editor->List1, 0);
    EXPECT_TRUE(editor->Image1->pixmap().isNull());
    clickRow(editor->List1, 1);
    EXPECT_TRUE(editor->Image1->pixmap().isNull());
}

TEST_F(GroupEditor, LoadsMembersWithoutTheirPictures)
{
    pickers.answer = {put(u"in.vxg"_s,
                          "[main]\nfiles=2\n[file1]\npath=/a.vxl\ntext=A\npicture=/p.jpg\n"
                          "[file2]\npath=/b.vxl\ntext=B\n")};
    openWith({u"old"_s});
    press(editor->Command3);
    EXPECT_EQ(entries(), QStringList({u"/a.vxl{}A"_s, u"/b.vxl{}B"_s}));
    EXPECT_EQ(pickers.calls, QStringList({u"open *.vxg"_s}));
}

TEST_F(GroupEditor, CreateFindsPacketsThatTheLoadedGroupNamesBesideItself)
{
    put(u"near.vxl"_s);
    open();
    load(editor->Command3, "[main]\nfiles=1\n[file1]\npath=near.vxl\ntext=A\n");
    press(editor->Command1);
    EXPECT_TRUE(
        bytesOf(temporaryGroup()).contains("\r\npath=" + room(u"near.vxl"_s).toUtf8() + "\r\n"))
        << bytesOf(temporaryGroup()).constData();
}

TEST_F(GroupEditor, AGroupThatIsSavedInAnotherFolderStillFindsItsPackets)
{
    put(u"near.vxl"_s);
    open();
    load(editor->Command3, "[main]\nfiles=1\n[file1]\npath=near.vxl\ntext=A\n");
    pickers.saveAnswer = module.ApplicationFolder + u"/out.vxg"_s;
    press(editor->Command4);
    EXPECT_TRUE(
        bytesOf(pickers.saveAnswer).contains("\r\npath=" + room(u"near.vxl"_s).toUtf8() + "\r\n"))
        << bytesOf(pickers.saveAnswer).constData();
}

TEST_F(GroupEditor, LoadedAndSavedAgainItLosesPicturesAndShiftsTexts)
{
    open();
    load(editor->Command3, "[main]\nfiles=2\n[file1]\npath=/a.vxl\ntext=A\npicture=/p.jpg\n"
                           "[file2]\npath=/b.vxl\ntext=B\npicture=/q.jpg\n");
    EXPECT_EQ(savedBy(editor->Command4),
              QByteArray("[main]\r\nfiles=2\r\n"
                         "[file1]\r\npath=/a.vxl\r\ntext=\r\npicture=\r\n"
                         "[file2]\r\npath=/b.vxl\r\ntext=\r\npicture=\r\n"));
}

TEST_F(GroupEditor, SavesExactBytesInBothDecimalMarks)
{
    for (const QLocale::Language language : {QLocale::English, QLocale::Russian}) {
        const UserLocale locale{QLocale(language)};
        openWith({u"/w1.vxl{}Неделя {} 1{}/w1.jpg"_s, u"/w2.vxl{}two"_s,
                  u"/w3.vxl{}three{}{No picture}"_s});
        EXPECT_EQ(savedBy(editor->Command4),
                  QByteArray("[main]\r\nfiles=3\r\n"
                             "[file1]\r\npath=/w1.vxl\r\ntext=Неделя {} 1\r\npicture=/w1.jpg\r\n"
                             "[file2]\r\npath=/w2.vxl\r\ntext=Неделя {} 1\r\npicture=/w1.jpg\r\n"
                             "[file3]\r\npath=/w3.vxl\r\ntext=three\r\npicture={No picture}\r\n"));
    }
}

TEST_F(GroupEditor, SavingReplacesAnOlderGroupEntirely)
{
    put(u"out"_s, "[main]\nfiles=7\n[file7]\npath=old\n");
    openWith({u"/a.vxl{}A{}p"_s});
    EXPECT_FALSE(savedBy(editor->Command4).contains("old"));
}

TEST_F(GroupEditor, CreateWritesTheTemporaryGroupAndCloses)
{
    openWith({u"/a.vxl{}A{}{No picture}"_s});
    press(editor->Command1);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_TRUE(module.EditorDone);
    EXPECT_EQ(bytesOf(temporaryGroup()),
              QByteArray("[main]\r\nfiles=1\r\n"
                         "[file1]\r\npath=/a.vxl\r\ntext=A\r\npicture={No picture}\r\n"));
}

} // namespace orvanta::test
