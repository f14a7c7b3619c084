// Brake mode: the list of brakes, loading and saving it.

#include "editors/folder_tree.h"
#include "editors/preview_pane.h"
#include "tests/editors/brake_mode.h"

#include <QLabel>
#include <QPushButton>

namespace orvanta::test {

TEST_F(BrakeMode, ClickingAFileOpensItAndEmptiesTheBrakes)
{
    put(u"clip.avi"_s);
    open();
    setBrakes({u"000001.00{}old"_s});
    clickRow(editor->File2, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return preview && preview->isReady(); }));
    EXPECT_EQ(brakes(), QStringList());
    EXPECT_EQ(editor->Text3->text(), room(u"clip.avi"_s));
    EXPECT_EQ(preview->FileName(), room(u"clip.avi"_s));
    EXPECT_EQ(preview->Volume(), -1000);
}

TEST_F(BrakeMode, NoPreviewIsMadeBeforeAClipIsOpened)
{
    open();
    EXPECT_TRUE(preview.isNull());
    EXPECT_EQ(editor->Label1->text(), u"000000.000"_s);
    EXPECT_EQ(editor->Label2->text(), u"000000.00"_s);
}

TEST_F(BrakeMode, AddKeyAppendsAtTheSliderAndLeavesTheListUnsorted)
{
    openClip();
    key(Qt::Key_PageUp);
    typeOver(editor->Text4, u"late"_s);
    press(editor->Command15);
    key(Qt::Key_PageDown);
    typeOver(editor->Text4, u"early"_s);
    press(editor->Command15);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}late"_s, u"000000.00{}early"_s}));
    EXPECT_EQ(editor->List2->list().selected, -1);
}

TEST_F(BrakeMode, ANewBrakeIsScrolledIntoSightAndTheNextTextIsTypedOverItsOwn)
{
    openClip();
    QStringList many;
    for (int i = 0; i < 100; ++i) {
        many.append(u"000001.00{}%1"_s.arg(i));
    }
    setBrakes(many);
    typeOver(editor->Text4, u"first"_s);
    press(editor->Command15);
    const EntryListView& list = *editor->List2;
    const QRect row = list.visualRect(list.model()->index(100, 0));
    EXPECT_TRUE(list.viewport()->rect().contains(row));
    EXPECT_EQ(list.list().selected, -1);
    EXPECT_EQ(editor->focusWidget(), editor->Text4);
    QTest::keyClicks(editor->Text4, u"second"_s);
    QTest::keyClick(editor->Text4, Qt::Key_Return);
    EXPECT_EQ(brakes().mid(100), QStringList({u"000000.00{}first"_s, u"000000.00{}second"_s}));
    EXPECT_EQ(editor->Text4->selectedText(), u"second"_s);
}

TEST_F(BrakeMode, ReturnInTheTextOfASelectedBrakeAddsNone)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    clickRow(editor->List2, 0);
    typeOver(editor->Text4, u"b"_s);
    QTest::keyClick(editor->Text4, Qt::Key_Return);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}b"_s}));
}

TEST_F(BrakeMode, EditingTheTextWithNothingSelectedChangesNoBrake)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    typeOver(editor->Text4, u"typed"_s);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}a"_s}));
}

TEST_F(BrakeMode, ClickingABrakeGoesThereAndRuns)
{
    openClip();
    setBrakes({u"000010.50{}a{}b"_s, u"000012.25{}c"_s});
    clickRow(editor->List2, 1);
    EXPECT_EQ(preview->calls, QStringList({u"Stop"_s, u"seek 12.25"_s, u"Run"_s}));
    EXPECT_EQ(editor->Text4->text(), u"c"_s);
    EXPECT_EQ(editor->Label1->text(), u"12.250"_s);
    EXPECT_EQ(editor->List2->toolTip(), u"000012.25{}c"_s);
}

TEST_F(BrakeMode, AClickSplitsAtTheLastMarkerEvenWhenTheTimeIsNoNumberThen)
{
    openClip();
    setBrakes({u"000010.50{}a{}b"_s});
    clickRow(editor->List2, 0);
    EXPECT_EQ(editor->Text4->text(), u"b"_s);
    EXPECT_EQ(brakes(), QStringList({u"000010.50{}a{}b"_s}));
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(BrakeMode, ABrakeUnderADecimalCommaIsReadBackWithIt)
{
    openClip();
    const UserLocale russian{QLocale(QLocale::Russian, QLocale::Russia)};
    key(Qt::Key_Right);
    press(editor->Command15);
    EXPECT_EQ(brakes(), QStringList({u"000000,10{}"_s}));
    key(Qt::Key_End);
    clickRow(editor->List2, 0);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0.1);
}

TEST_F(BrakeMode, RemoveKeyRemovesTheSelectedBrakeOrNothing)
{
    openClip();
    setBrakes({u"1{}a"_s, u"2{}b"_s});
    press(editor->Command11);
    EXPECT_EQ(brakes().size(), 2);
    clickRow(editor->List2, 0);
    QTest::keyClick(editor->List2, Qt::Key_Delete);
    EXPECT_EQ(brakes(), QStringList({u"2{}b"_s}));
    clickRow(editor->List2, 0);
    press(editor->Command11);
    EXPECT_EQ(brakes(), QStringList());
}

TEST_F(BrakeMode, KeysMoveTheSelectedBrakeInTheListAndKeepItsTime)
{
    openClip();
    setBrakes({u"1{}a"_s, u"2{}b"_s});
    clickRow(editor->List2, 0);
    QTest::keyClick(editor->List2, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(brakes(), QStringList({u"2{}b"_s, u"1{}a"_s}));
    QTest::keyClick(editor->List2, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(brakes(), QStringList({u"1{}a"_s, u"2{}b"_s}));
}

TEST_F(BrakeMode, AClickBesideTheBrakesSelectsNone)
{
    openClip();
    setBrakes({u"1{}a"_s});
    clickRow(editor->List2, 0);
    ASSERT_EQ(editor->List2->list().selected, 0);
    const QRect area = editor->List2->viewport()->rect();
    QTest::mouseClick(editor->List2->viewport(), Qt::LeftButton, {},
                      area.bottomRight() - QPoint(4, 4));
    EXPECT_EQ(editor->List2->list().selected, -1);
    key(Qt::Key_PageUp);
    EXPECT_EQ(brakes(), QStringList({u"1{}a"_s}));
}

TEST_F(BrakeMode, ControlAndSpaceLetGoOfABrakeAndTakeItAgain)
{
    openClip();
    setBrakes({u"1{}a"_s});
    clickRow(editor->List2, 0);
    QTest::keyClick(editor->List2, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(editor->List2->list().selected, -1);
    key(Qt::Key_PageUp);
    EXPECT_EQ(brakes(), QStringList({u"1{}a"_s}));
    QTest::keyClick(editor->List2, Qt::Key_Space);
    EXPECT_EQ(editor->List2->list().selected, 0);
}

TEST_F(BrakeMode, TheBrakeThatThePreviewPassesIsMarkedAndNotSelected)
{
    openClip();
    setBrakes({u"000020.00{}b"_s, u"000010.00{}a"_s});
    preview->playTo(9);
    EXPECT_EQ(editor->List2->markedRow(), -1);
    preview->playTo(10);
    EXPECT_EQ(editor->List2->markedRow(), 1);
    preview->playTo(25);
    EXPECT_EQ(editor->List2->markedRow(), 0);
    EXPECT_EQ(editor->List2->list().selected, -1);
    EXPECT_EQ(editor->Slider1->seconds(), 0);
}

TEST_F(BrakeMode, TheMarkStaysWithItsBrakeWhenTheListChanges)
{
    openClip();
    setBrakes({u"000010.00{}a"_s, u"000020.00{}b"_s});
    preview->playTo(25);
    ASSERT_EQ(editor->List2->markedRow(), 1);
    clickRow(editor->List2, 0);
    preview->playTo(25);
    press(editor->Command11);
    EXPECT_EQ(editor->List2->markedRow(), 0);
    press(editor->Command15); // right where the preview is
    EXPECT_EQ(editor->List2->markedRow(), 1);
    put(u"other.avi"_s);
    editor->File2->setFolder(room());
    clickRow(editor->File2, 1);
    setBrakes({u"000000.00{}a"_s});
    EXPECT_EQ(editor->List2->markedRow(), -1);
}

TEST_F(BrakeMode, LoadingTheSameBrakesAgainTakesTheMarkOff)
{
    openClip();
    setBrakes({u"1{}a"_s});
    preview->playTo(5);
    ASSERT_EQ(editor->List2->markedRow(), 0);
    pickers.answer = {put(u"in.vxl"_s, "[main]\nfile=clip.avi\nbrakes=1\n"
                                       "[brake1]\ntime=1\ntext=a\n")};
    press(editor->Command7);
    EXPECT_EQ(editor->List2->markedRow(), -1);
}

TEST_F(BrakeMode, LoadsABrakePacket)
{
    put(u"clip.avi"_s);
    pickers.answer = {put(u"in.vxl"_s,
                          "[main]\nfile=clip.avi\nbrakes=2\n[brake1]\ntime=000001.00\ntext=A\n"
                          "[brake2]\ntime=000002,50\ntext=B\n")};
    open();
    setBrakes({u"9{}old"_s}, 0);
    press(editor->Command7);
    EXPECT_EQ(brakes(), QStringList({u"000001.00{}A"_s, u"000002,50{}B"_s}));
    EXPECT_EQ(editor->Text3->text(), u"clip.avi"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return preview && preview->isReady(); }));
    EXPECT_EQ(preview->FileName(), room(u"clip.avi"_s));
    EXPECT_EQ(editor->File2->FileName(), QString());
    EXPECT_EQ(pickers.calls, QStringList({u"open *.vxl"_s}));
}

TEST_F(BrakeMode, ProposesTheNameOfTheBrakePacketThatWasLoaded)
{
    open();
    press(editor->Command16);
    load(editor->Command7, "[main]\nbrakes=0\n");
    press(editor->Command16);
    press(editor->Command4);
    EXPECT_EQ(pickers.proposals, QStringList({QString(), u"in"_s, QString()}));
}

TEST_F(BrakeMode, AFileThatHasOnlyTheKeyboardsFocusIsNotTheClip)
{
    put(u"other.avi"_s);
    open();
    load(editor->Command7, "[main]\nfile=/c/clip.avi\nbrakes=1\n[brake1]\ntime=1\ntext=A\n");
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    editor->File2->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(editor->File2->currentIndex().isValid());
    EXPECT_TRUE(
        savedBy(editor->Command16).contains("[file1]\r\npath=/c/clip.avi\r\ntext=/c/clip.avi\r\n"))
        << bytesOf(room(u"out"_s)).constData();
}

TEST_F(BrakeMode, TheSavedClipIsTheOpenedOneWhateverTheFilesShowByThen)
{
    putAll({u"clip.avi"_s, u"other.avi"_s});
    QDir(room()).mkdir(u"sub"_s);
    openClip();
    const QByteArray clip = room(u"clip.avi"_s).toUtf8();
    const QByteArray expected = "[file1]\r\npath=" + clip + "\r\ntext=" + clip + "\r\n";
    QTest::keyClick(editor->File2, Qt::Key_Down);
    ASSERT_EQ(editor->File2->FileName(), u"other.avi"_s);
    EXPECT_TRUE(savedBy(editor->Command16).contains(expected));
    editor->FolderTreeview2->setFolder(room(u"sub"_s));
    ASSERT_EQ(editor->File2->folder(), room(u"sub"_s));
    EXPECT_TRUE(savedBy(editor->Command16).contains(expected));
}

TEST_F(BrakeMode, WithNoClipOpenedThePacketNamesNone)
{
    put(u"other.avi"_s);
    open();
    EXPECT_TRUE(savedBy(editor->Command16).contains("[file1]\r\npath=\r\ntext=\r\n"))
        << bytesOf(room(u"out"_s)).constData();
}

TEST_F(BrakeMode, CreateFindsTheClipThatTheLoadedPacketNamesBesideItself)
{
    put(u"clip.avi"_s);
    open();
    load(editor->Command7, "[main]\nfile=clip.avi\nbrakes=1\n"
                           "[brake1]\ntime=000001.00\ntext=A\n");
    press(editor->Command12);
    EXPECT_TRUE(
        bytesOf(temporaryPacket()).contains("\r\nfile=" + room(u"clip.avi"_s).toUtf8() + "\r\n"))
        << bytesOf(temporaryPacket()).constData();
}

TEST_F(BrakeMode, APacketThatIsSavedInAnotherFolderStillFindsItsClip)
{
    put(u"clip.avi"_s);
    open();
    load(editor->Command7, "[main]\nfile=clip.avi\nbrakes=0\n");
    pickers.saveAnswer = module.ApplicationFolder + u"/out.vxl"_s;
    press(editor->Command16);
    EXPECT_TRUE(
        bytesOf(pickers.saveAnswer).contains("\r\nfile=" + room(u"clip.avi"_s).toUtf8() + "\r\n"))
        << bytesOf(pickers.saveAnswer).constData();
}

TEST_F(BrakeMode, LoadingPassesOverWhatFails)
{
    pickers.answer = {put(u"in.vxl"_s, "[main]\nfile=/gone.avi\nbrakes=abc\n")};
    open();
    setBrakes({u"9{}old"_s});
    press(editor->Command7);
    EXPECT_EQ(brakes(), QStringList());
    EXPECT_EQ(editor->Text3->text(), u"/gone.avi"_s);
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(BrakeMode, ACancelledPickerLeavesTheBrakes)
{
    open();
    setBrakes({u"9{}old"_s});
    press(editor->Command7);
    press(editor->Command16);
    EXPECT_EQ(brakes(), QStringList({u"9{}old"_s}));
    EXPECT_EQ(QDir(room()).entryList(QDir::Files), QStringList());
}

TEST_F(BrakeMode, SavesExactBytesInBothDecimalMarks)
{
    struct Row
    {
        QLocale::Language language;
        const char* time;
    };
    for (const Row& row :
         {Row{QLocale::English, "000010.00"}, Row{QLocale::Russian, "000010,00"}}) {
        openClip();
        const UserLocale locale{QLocale(row.language)};
        key(Qt::Key_PageUp);
        typeOver(editor->Text4, u"a{}b"_s);
        press(editor->Command15);
        const QByteArray clip = room(u"clip.avi"_s).toUtf8();
        EXPECT_EQ(savedBy(editor->Command16),
                  "[main]\r\nfiles=1\r\nfile=" + clip + "\r\nbrakes=1\r\n[file1]\r\npath=" + clip +
                      "\r\ntext=" + clip + "\r\n[brake1]\r\ntime=" + row.time +
                      "\r\ntext=a{}b\r\n");
        EXPECT_TRUE(editor->isVisible());
    }
}

TEST_F(BrakeMode, SavingWithoutBrakesWritesThePacketAllTheSame)
{
    openClip();
    EXPECT_TRUE(savedBy(editor->Command16).contains("brakes=0\r\n"));
}

TEST_F(BrakeMode, CreateWithoutBrakesClosesWithoutResult)
{
    openClip();
    press(editor->Command12);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_FALSE(module.EditorDone);
    EXPECT_FALSE(QFile::exists(temporaryPacket()));
}

TEST_F(BrakeMode, CreateWritesTheTemporaryPacketAndCloses)
{
    openClip();
    setBrakes({u"000002.00{}b"_s, u"000001.00{}a"_s});
    press(editor->Command12);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_TRUE(module.EditorDone);
    EXPECT_TRUE(bytesOf(temporaryPacket())
                    .endsWith("[brake1]\r\ntime=000002.00\r\ntext=b\r\n"
                              "[brake2]\r\ntime=000001.00\r\ntext=a\r\n"));
}

TEST_F(BrakeMode, APlayerThatCannotBeMadeLeavesTheEditorUsable)
{
    put(u"clip.avi"_s);
    EditorServices broken = services();
    broken.makePreview = []() -> std::unique_ptr<MediaControl> {
        throw RuntimeError(ErrorNumber::FileNotFound);
    };
    Form5 form(broken);
    form.show();
    form.Option2->click();
    clickRow(form.File2, 0);
    EXPECT_EQ(form.Text3->text(), room(u"clip.avi"_s));
    QTest::mouseClick(form.Command15, Qt::LeftButton);
    EXPECT_EQ(form.List2->list().entries, QStringList({u"000000.00{}"_s}));
    EXPECT_EQ(untrapped, QStringList());
}

} // namespace orvanta::test
