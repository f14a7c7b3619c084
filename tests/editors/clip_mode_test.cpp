#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form5_packet_editor.h"
#include "tests/editors/editor_room.h"

#include <QClipboard>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTextDocument>

namespace orvanta::test {

namespace {

class ClipMode : public EditorOnScreen<Form5>
{
protected:
    [[nodiscard]] QString temporaryPacket() const { return temporary(u"temp.vxl"_s); }
};

} // namespace

TEST_F(ClipMode, BeginsWithThePacketFrameTheStoredFolderAndTheRegisteredTypes)
{
    putAll({u"a.avi"_s, u"b.MP3"_s, u"c.txt"_s});
    open();
    EXPECT_TRUE(editor->Option1->isChecked());
    EXPECT_TRUE(editor->Frame1->isVisible());
    EXPECT_FALSE(editor->Frame5->isVisible());
    EXPECT_FALSE(editor->Command16->isVisible());
    EXPECT_FALSE(editor->Command12->isVisible());
    EXPECT_EQ(editor->File1->pattern(), u"*.avi;*.mp3"_s);
    EXPECT_EQ(editor->File2->pattern(), u"*.avi;*.mp3"_s);
    EXPECT_EQ(editor->File1->names(), QStringList({u"a.avi"_s, u"b.MP3"_s}));
    EXPECT_EQ(editor->FolderTreeview1->folder(), room());
    EXPECT_EQ(editor->FolderTreeview2->folder(), room());
}

TEST_F(ClipMode, WithoutAUsableNumberOfTypesItOpensWithEmptyLists)
{
    put(u"a.avi"_s);
    set(u"types"_s, u"num"_s, u"many"_s);
    open();
    EXPECT_EQ(editor->File1->names(), QStringList());
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(ClipMode, TheNumberOfTypesLosesItsFraction)
{
    set(u"types"_s, u"num"_s, u"1.9"_s);
    open();
    EXPECT_EQ(editor->File1->pattern(), u"*.avi"_s);
}

TEST_F(ClipMode, IsRussianForTwoAlone)
{
    module.Language = 2;
    open();
    EXPECT_EQ(editor->windowTitle(), u"Создать пакет"_s);
    EXPECT_EQ(editor->Command8->text(), u"Добавить все"_s);
    EXPECT_EQ(editor->Option2->text(), u"Разбивку"_s);
    module.Language = 0;
    open();
    EXPECT_EQ(editor->windowTitle(), u"Create packet"_s);
    EXPECT_EQ(editor->Command11->text(), u"Remove key"_s);
}

TEST_F(ClipMode, SwitchingTheModeKeepsBothLists)
{
    openWith({u"a{}b"_s});
    QTest::mouseClick(editor->Option2, Qt::LeftButton, {},
                      QPoint(8, editor->Option2->height() / 2));
    EXPECT_TRUE(editor->Frame5->isVisible());
    EXPECT_TRUE(editor->Command16->isVisible());
    EXPECT_TRUE(editor->Command12->isVisible());
    EXPECT_EQ(entries(), QStringList({u"a{}b"_s}));
    QTest::mouseClick(editor->Option1, Qt::LeftButton, {},
                      QPoint(8, editor->Option1->height() / 2));
    EXPECT_FALSE(editor->Frame5->isVisible());
    EXPECT_FALSE(editor->Command16->isVisible());
    EXPECT_EQ(entries(), QStringList({u"a{}b"_s}));
}

TEST_F(ClipMode, ArrowKeysSwitchTheMode)
{
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    editor->Option1->setFocus();
    QTest::keyClick(editor->Option1, Qt::Key_Right);
    EXPECT_TRUE(editor->Frame5->isVisible());
    EXPECT_TRUE(editor->Option2->isChecked());
    QTest::keyClick(editor->Option2, Qt::Key_Left);
    EXPECT_FALSE(editor->Frame5->isVisible());
}

TEST_F(ClipMode, ClickingFilesAddsThemOneAfterTheOther)
{
    putAll({u"a.b.avi"_s, u"c.avi"_s});
    open();
    clickRow(editor->File1, 0);
    EXPECT_EQ(editor->Text1->text(), room(u"a.b.avi"_s));
    EXPECT_EQ(editor->Text2->text(), u"a.b"_s);
    clickRow(editor->File1, 1);
    EXPECT_EQ(entries(),
              QStringList({room(u"a.b.avi"_s) + u"{}a.b"_s, room(u"c.avi"_s) + u"{}c"_s}));
    EXPECT_EQ(selected(), 1);
}

TEST_F(ClipMode, ClickingAFileWithNothingSelectedOverwritesTheFirstEntry)
{
    put(u"c.avi"_s);
    openWith({u"a{}1"_s, u"b{}2"_s});
    clickRow(editor->File1, 0);
    EXPECT_EQ(entries(), QStringList({room(u"c.avi"_s) + u"{}c"_s, u"b{}2"_s, QString()}));
    EXPECT_EQ(selected(), 0);
}

TEST_F(ClipMode, AFileGoesRightAfterTheSelectedEntry)
{
    put(u"c.avi"_s);
    openWith({u"a{}1"_s, u"b{}2"_s}, 0);
    clickRow(editor->File1, 0);
    EXPECT_EQ(entries(), QStringList({u"a{}1"_s, room(u"c.avi"_s) + u"{}c"_s, u"b{}2"_s}));
}

TEST_F(ClipMode, SpaceAndEnterOnAFileAddItOnce)
{
    put(u"c.avi"_s);
    open();
    editor->File1->selectFirst();
    QTest::keyClick(editor->File1, Qt::Key_Space);
    EXPECT_EQ(entries().size(), 1);
    QTest::keyClick(editor->File1, Qt::Key_Return);
    EXPECT_EQ(entries().size(), 2);
    EXPECT_TRUE(editor->isVisible());
}

TEST_F(ClipMode, AClickWithControlAddsTheFileLikeAnyOther)
{
    put(u"c.avi"_s);
    open();
    clickRow(editor->File1, 0, Qt::ControlModifier);
    clickRow(editor->File1, 0, Qt::ControlModifier);
    const QString entry = room(u"c.avi"_s) + u"{}c"_s;
    EXPECT_EQ(entries(), QStringList({entry, entry}));
}

TEST_F(ClipMode, ABlankWithinATypedNameAddsNoFile)
{
    putAll({u"my clip.avi"_s, u"my song.avi"_s});
    open();
    QTest::keyClicks(editor->File1, u"my s"_s);
    EXPECT_EQ(entries(), QStringList());
    QTest::keyClick(editor->File1, Qt::Key_Return);
    EXPECT_EQ(entries(), QStringList({room(u"my song.avi"_s) + u"{}my song"_s}));
}

TEST_F(ClipMode, EditingATextRebuildsTheSelectedEntry)
{
    openWith({u"a{}1"_s, u"b{}2"_s});
    clickRow(editor->List1, 1);
    typeOver(editor->Text2, u"new"_s);
    EXPECT_EQ(entries(), QStringList({u"a{}1"_s, u"b{}new"_s}));
    typeOver(editor->Text1, u"/c.avi"_s);
    EXPECT_EQ(entries(), QStringList({u"a{}1"_s, u"/c.avi{}new"_s}));
    EXPECT_EQ(selected(), 1);
}

TEST_F(ClipMode, EditingATextWithNothingSelectedAppendsANewEntry)
{
    openWith({u"a{}1"_s});
    typeOver(editor->Text1, u"x"_s);
    EXPECT_EQ(entries(), QStringList({u"a{}1"_s, u"x{}"_s}));
    EXPECT_EQ(selected(), 1);
}

TEST_F(ClipMode, ClickingAnEntrySplitsItAtTheLastMarkerAndLeavesItAsItIs)
{
    openWith({u"path{}text{}more"_s});
    clickRow(editor->List1, 0);
    EXPECT_EQ(editor->Text1->text(), u"path{}text"_s);
    EXPECT_EQ(editor->Text2->text(), u"more"_s);
    EXPECT_EQ(editor->List1->toolTip(), u"path{}text{}more"_s);
    EXPECT_EQ(entries(), QStringList({u"path{}text{}more"_s}));
}

TEST_F(ClipMode, TheToolTipShowsMarkupAndEntitiesAsTheyAreTyped)
{
    openWith({u"/a.avi{}Tom & Jerry"_s, u"/b.avi{}<b>bold</b>"_s});
    clickRow(editor->List1, 0);
    EXPECT_EQ(editor->List1->toolTip(), u"/a.avi{}Tom & Jerry"_s);
    clickRow(editor->List1, 1);
    EXPECT_TRUE(Qt::mightBeRichText(editor->List1->toolTip()));
    EXPECT_EQ(editor->List1->toolTip(), u"/b.avi{}&lt;b&gt;bold&lt;/b&gt;"_s);
}

TEST_F(ClipMode, CreateFindsClipsThatTheLoadedPacketNamesBesideItself)
{
    put(u"near.avi"_s);
    open();
    load(editor->Command3, "[main]\nfiles=2\n[file1]\npath=near.avi\ntext=A\n"
                           "[file2]\npath=gone.avi\ntext=B\n");
    EXPECT_TRUE(savedBy(editor->Command4).contains("path=near.avi\r\n"));
    press(editor->Command1);
    EXPECT_EQ(bytesOf(temporaryPacket()),
              "[main]\r\nfiles=2\r\n[file1]\r\npath=" + room(u"near.avi"_s).toUtf8() +
                  "\r\ntext=A\r\n"
                  "[file2]\r\npath=gone.avi\r\ntext=B\r\n");
}

TEST_F(ClipMode, APacketThatIsSavedInAnotherFolderStillFindsItsClips)
{
    put(u"near.avi"_s);
    open();
    load(editor->Command3, "[main]\nfiles=1\n[file1]\npath=near.avi\ntext=A\n");
    pickers.saveAnswer = module.ApplicationFolder + u"/out.vxl"_s;
    press(editor->Command4);
    EXPECT_EQ(bytesOf(pickers.saveAnswer), "[main]\r\nfiles=1\r\n[file1]\r\npath=" +
                                               room(u"near.avi"_s).toUtf8() + "\r\ntext=A\r\n");
}

TEST_F(ClipMode, APacketThatIsSavedInAnotherFolderKeepsItsAbsolutePathsAndCreateFindsTheirClips)
{
    put(u"near.avi"_s);
    open();
    load(editor->Command3, "[main]\nfiles=1\n[file1]\npath=C:\\Clips\\near.avi\ntext=A\n");
    pickers.saveAnswer = module.ApplicationFolder + u"/out.vxl"_s;
    press(editor->Command4);
    EXPECT_EQ(bytesOf(pickers.saveAnswer),
              "[main]\r\nfiles=1\r\n[file1]\r\npath=C:\\Clips\\near.avi\r\ntext=A\r\n");
    press(editor->Command1);
    EXPECT_TRUE(
        bytesOf(temporaryPacket()).contains("path=" + room(u"near.avi"_s).toUtf8() + "\r\n"));
}

TEST_F(ClipMode, PastedLineBreaksBecomeBlanks)
{
    openWith({u"a{}1"_s}, 0);
    editor->Text2->setFocus();
    editor->Text2->selectAll();
    QApplication::clipboard()->setText(u"one\r\ntwo\nthree"_s);
    QTest::keySequence(editor->Text2, QKeySequence::Paste);
    EXPECT_EQ(editor->Text2->text(), u"one two three"_s);
    EXPECT_TRUE(entries().at(0).endsWith(u"{}one two three"_s)) << qPrintable(entries().at(0));
}

TEST_F(ClipMode, AddAllAppendsEveryFileInTheListsOrder)
{
    putAll({u"a10.avi"_s, u"a2.avi"_s});
    openWith({u"x{}y"_s});
    press(editor->Command8);
    EXPECT_EQ(entries(), QStringList({u"x{}y"_s, room(u"a2.avi"_s) + u"{}a2"_s,
                                      room(u"a10.avi"_s) + u"{}a10"_s}));
}

TEST_F(ClipMode, SavesExactBytesInBothDecimalMarks)
{
    for (const QLocale::Language language : {QLocale::English, QLocale::Russian}) {
        const UserLocale locale{QLocale(language)};
        openWith({u"/c/intro.avi{}Введение {} 1"_s, u"/c/{}x.avi{}part"_s, u"no marker"_s});
        EXPECT_EQ(savedBy(editor->Command4),
                  QByteArray("[main]\r\nfiles=3\r\n"
                             "[file1]\r\npath=/c/intro.avi\r\ntext=Введение {} 1\r\n"
                             "[file2]\r\npath=/c/\r\ntext=x.avi{}part\r\n"
                             "[file3]\r\npath=/c/\r\ntext=x.avi{}part\r\n"));
        EXPECT_TRUE(editor->isVisible());
    }
    EXPECT_EQ(pickers.calls, QStringList({u"save *.vxl"_s, u"save *.vxl"_s}));
}

TEST_F(ClipMode, SavingReplacesAnOlderFileEntirely)
{
    put(u"out"_s, "[main]\r\nfiles=1\r\nbrakes=3\r\n[file9]\r\npath=old\r\n");
    openWith({u"/a.avi{}a"_s});
    EXPECT_EQ(savedBy(editor->Command4),
              QByteArray("[main]\r\nfiles=1\r\n[file1]\r\npath=/a.avi\r\ntext=a\r\n"));
}

TEST_F(ClipMode, LoadsAPacketInPlaceOfTheList)
{
    pickers.answer = {put(u"in.vxl"_s, "[main]\nfiles=2\n[file1]\npath=/a.avi\ntext=A\n"
                                       "[file2]\npath=/b.avi\ntext=B\n")};
    openWith({u"old{}old"_s}, 0);
    press(editor->Command3);
    EXPECT_EQ(entries(), QStringList({u"/a.avi{}A"_s, u"/b.avi{}B"_s}));
    EXPECT_EQ(selected(), -1);
}

TEST_F(ClipMode, LoadsABrakePacketAsItsOneClip)
{
    open();
    load(editor->Command3, "[main]\nfiles=1\nfile=/a.avi\nbrakes=1\n"
                           "[file1]\npath=/a.avi\ntext=/a.avi\n[brake1]\ntime=1\ntext=T\n");
    EXPECT_EQ(entries(), QStringList({u"/a.avi{}/a.avi"_s}));
}

TEST_F(ClipMode, CountsLargerThanTheSectionsGiveEmptyEntries)
{
    open();
    load(editor->Command3, "[main]\nfiles=2\n[file1]\npath=/a.avi\ntext=A\n[file3]\npath=/c.avi\n");
    EXPECT_EQ(entries(), QStringList({u"/a.avi{}A"_s, u"{}"_s}));
}

TEST_F(ClipMode, LoadingAFileThatIsGoneShowsNoMessage)
{
    pickers.answer = {room(u"gone.vxl"_s)};
    open();
    press(editor->Command3);
    EXPECT_EQ(entries(), QStringList());
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(ClipMode, CreateWritesTheTemporaryPacketAndCloses)
{
    openWith({u"/a.avi{}A"_s});
    press(editor->Command1);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_TRUE(module.EditorDone);
    EXPECT_EQ(bytesOf(temporaryPacket()),
              QByteArray("[main]\r\nfiles=1\r\n[file1]\r\npath=/a.avi\r\ntext=A\r\n"));
}

TEST_F(ClipMode, EscClosesOnlyWhileThereIsNothingToLose)
{
    openWith({u"/a.avi{}A"_s});
    QTest::keyClick(editor->List1, Qt::Key_Escape);
    EXPECT_TRUE(editor->isVisible());
    press(editor->Command6);
    QTest::keyClick(editor->List1, Qt::Key_Escape);
    EXPECT_FALSE(editor->isVisible());
}

TEST_F(ClipMode, EnterInATextBoxClosesNothing)
{
    openWith({u"/a.avi{}A"_s}, 0);
    QTest::keyClick(editor->Text2, Qt::Key_Return);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_FALSE(QFile::exists(temporaryPacket()));
}

TEST_F(ClipMode, TheFoldersOfTheTwoModesAreIndependent)
{
    QDir(room()).mkdir(u"sub"_s);
    open();
    editor->FolderTreeview1->setFolder(room(u"sub"_s));
    EXPECT_EQ(editor->File1->folder(), room(u"sub"_s));
    EXPECT_EQ(editor->File2->folder(), room());
}

} // namespace orvanta::test
