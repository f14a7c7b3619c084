#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/preview_pane.h"
#include "editors/time_slider.h"
#include "tests/editors/editor_room.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QWheelEvent>

namespace orvanta::test {

namespace {

class BrakeMode : public EditorOnScreen<Form5>
{
protected:
    void open()
    {
        EditorOnScreen::open();
        editor->Option2->click();
    }
    /// Opens clip.avi (120 s long) by a click on it.
    void openClip()
    {
        put(u"clip.avi"_s);
        open();
        clickRow(editor->File2, 0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview && preview->isReady(); }));
        preview->calls.clear();
    }
    void setBrakes(const QStringList& brakes, int selected = -1)
    {
        editor->List2->change(
            [&](EntryList& list) { list = {.entries = brakes, .selected = selected}; });
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers keys = {})
    {
        QTest::keyClick(editor->Slider1, pressed, keys);
    }
    /// Drags the handle to these parts of the slider and lets it go.
    void drag(const std::vector<double>& parts)
    {
        dragAndHold(parts);
        QTest::mouseRelease(editor->Slider1, Qt::LeftButton, {}, placeOf(parts.back()));
    }
    void dragAndHold(const std::vector<double>& parts)
    {
        TimeSlider* slider = editor->Slider1;
        QTest::mousePress(slider, Qt::LeftButton, {}, placeOf(parts.front()));
        for (const double part : parts) {
            const QPoint at = placeOf(part);
            QMouseEvent move(QEvent::MouseMove, at, slider->mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(slider, &move);
        }
    }
    [[nodiscard]] QPoint placeOf(double part) const
    {
        const QSize slider = editor->Slider1->size();
        return {static_cast<int>(part * slider.width()), slider.height() / 2};
    }
    [[nodiscard]] QStringList brakes() const { return editor->List2->list().entries; }
    [[nodiscard]] QString temporaryPacket() const { return temporary(u"temp.vxl"_s); }

private:
    UserLocale m_locale{QLocale(QLocale::English, QLocale::UnitedStates)};
};

} // namespace

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

TEST_F(BrakeMode, AnOpenedClipGivesTheSliderItsLength)
{
    openClip();
    EXPECT_EQ(editor->Label2->text(), u"120"_s);
    EXPECT_EQ(editor->Slider1->seconds(), 0);
    EXPECT_EQ(editor->Slider1->maximum(), 120000);
    EXPECT_NE(preview->CurrentState(), MediaControl::Running);
}

TEST_F(BrakeMode, TheSliderStepsByKeyboardToATenthOfASecond)
{
    openClip();
    key(Qt::Key_Right);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0.1);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 1.1);
    key(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 11.1);
    key(Qt::Key_PageDown);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0);
    key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0);
    key(Qt::Key_End);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 120);
}

TEST_F(BrakeMode, AStepStopsThePreviewGoesThereAndRunsIt)
{
    openClip();
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(preview->calls, QStringList({u"Stop"_s, u"seek 1"_s, u"Run"_s}));
    EXPECT_EQ(preview->CurrentState(), MediaControl::Running);
    EXPECT_EQ(editor->Label1->text(), u"1.000"_s);
}

TEST_F(BrakeMode, ADragShowsNearPicturesAndSeeksExactlyOnceAtItsEnd)
{
    openClip();
    drag({0.2, 0.4, 0.6});
    EXPECT_EQ(preview->calls.filter(u"seek"_s).size(), 1);
    EXPECT_EQ(preview->calls.last(), u"Run"_s);
    EXPECT_GE(preview->calls.filter(u"preview"_s).size(), 3);
}

TEST_F(BrakeMode, AHandleThatRestsShowsThePictureRightThere)
{
    openClip();
    dragAndHold({0.2, 0.5});
    const QString exact = u"seek %1"_s.arg(editor->Slider1->seconds());
    EXPECT_FALSE(preview->calls.contains(exact));
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview->calls.contains(exact); }))
        << preview->calls.join(u' ').toStdString();
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
}

TEST_F(BrakeMode, MovingTheSliderMovesTheSelectedBrake)
{
    openClip();
    setBrakes({u"000010.00{}a"_s, u"000020.00{}b"_s});
    clickRow(editor->List2, 1);
    key(Qt::Key_Right);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}a"_s, u"000020.10{}b"_s}));
    drag({0.5});
    EXPECT_EQ(brakes().at(0), u"000010.00{}a"_s);
    EXPECT_NE(brakes().at(1), u"000020.10{}b"_s);
}

TEST_F(BrakeMode, TheLastOfFiveHundredBrakesOfAnHourIsSetToATenthOfASecond)
{
    previewSeconds = 3600;
    openClip();
    QStringList many;
    for (int i = 0; i < 500; ++i) {
        many.append(u"%1.00{}brake"_s.arg(i * 7, 6, 10, QChar(u'0')));
    }
    setBrakes(many);
    clickRow(editor->List2, 499);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    EXPECT_EQ(brakes().last(), u"003493.20{}brake"_s);
    EXPECT_EQ(brakes().mid(0, 499), many.mid(0, 499));
}

TEST_F(BrakeMode, MovingTheSliderWithNothingSelectedMovesNoBrake)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    key(Qt::Key_PageUp);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}a"_s}));
}

TEST_F(BrakeMode, ChangesOfTheSliderByTheProgramRewriteNoBrake)
{
    openClip();
    setBrakes({u"5{}a"_s, u"6{}b"_s}, 0);
    // Another clip is opened while a brake is selected: the slider goes back to 0.
    preview->setFileName(room(u"clip.avi"_s));
    ASSERT_TRUE(QTest::qWaitFor([&] { return preview->isReady(); }));
    EXPECT_EQ(editor->Slider1->seconds(), 0);
    clickRow(editor->List2, 1);
    EXPECT_EQ(editor->Slider1->seconds(), 6);
    EXPECT_EQ(brakes(), QStringList({u"5{}a"_s, u"6{}b"_s}));
}

TEST_F(BrakeMode, ClickingABrakeWithNoClipOpenKeepsItsTime)
{
    open();
    setBrakes({u"000075.40{}a"_s});
    clickRow(editor->List2, 0);
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}a"_s}));
    typeOver(editor->Text4, u"b"_s);
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}b"_s}));
    EXPECT_TRUE(preview.isNull());
}

TEST_F(BrakeMode, WithNoClipOpenTheSliderMovesNoBrake)
{
    open();
    setBrakes({u"000075.40{}a"_s});
    clickRow(editor->List2, 0);
    key(Qt::Key_Right);
    key(Qt::Key_Home);
    drag({0.2, 0.7});
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}a"_s}));
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

TEST_F(BrakeMode, LoadsABrakePacket)
{
    put(u"clip.avi"_s);
    pickers.openAnswer =
        put(u"in.vxl"_s, "[main]\nfile=clip.avi\nbrakes=2\n[brake1]\ntime=000001.00\ntext=A\n"
                         "[brake2]\ntime=000002,50\ntext=B\n");
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

TEST_F(BrakeMode, AFileThatHasOnlyTheKeyboardsFocusIsNotTheClip)
{
    put(u"other.avi"_s);
    pickers.openAnswer =
        put(u"in.vxl"_s, "[main]\nfile=/c/clip.avi\nbrakes=1\n[brake1]\ntime=1\ntext=A\n");
    open();
    press(editor->Command7);
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    editor->File2->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(editor->File2->currentIndex().isValid());
    pickers.saveAnswer = room(u"out.vxl"_s);
    press(editor->Command16);
    const QByteArray folder = room().toUtf8() + '/';
    EXPECT_TRUE(bytesOf(room(u"out.vxl"_s))
                    .contains("[file1]\r\npath=" + folder + "\r\ntext=" + folder + "\r\n"))
        << bytesOf(room(u"out.vxl"_s)).constData();
}

TEST_F(BrakeMode, CreateFindsTheClipThatTheLoadedPacketNamesBesideItself)
{
    put(u"clip.avi"_s);
    pickers.openAnswer = put(u"in.vxl"_s, "[main]\nfile=clip.avi\nbrakes=1\n"
                                          "[brake1]\ntime=000001.00\ntext=A\n");
    open();
    press(editor->Command7);
    press(editor->Command12);
    EXPECT_TRUE(
        bytesOf(temporaryPacket()).contains("\r\nfile=" + room(u"clip.avi"_s).toUtf8() + "\r\n"))
        << bytesOf(temporaryPacket()).constData();
}

TEST_F(BrakeMode, LoadingPassesOverWhatFails)
{
    pickers.openAnswer = put(u"in.vxl"_s, "[main]\nfile=/gone.avi\nbrakes=abc\n");
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
        pickers.saveAnswer = room(u"out.vxl"_s);
        press(editor->Command16);
        const QByteArray clip = room(u"clip.avi"_s).toUtf8();
        EXPECT_EQ(bytesOf(room(u"out.vxl"_s)),
                  "[main]\r\nfiles=1\r\nfile=" + clip + "\r\nbrakes=1\r\n[file1]\r\npath=" + clip +
                      "\r\ntext=" + clip + "\r\n[brake1]\r\ntime=" + row.time +
                      "\r\ntext=a{}b\r\n");
        EXPECT_TRUE(editor->isVisible());
    }
}

TEST_F(BrakeMode, SavingWithoutBrakesWritesThePacketAllTheSame)
{
    openClip();
    pickers.saveAnswer = room(u"out.vxl"_s);
    press(editor->Command16);
    EXPECT_TRUE(bytesOf(room(u"out.vxl"_s)).contains("brakes=0\r\n"));
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

TEST_F(BrakeMode, AClickOnThePictureHaltsThePreviewAndLetsItGoOn)
{
    openClip();
    QTest::mouseClick(editor->ActiveMovie1, Qt::LeftButton);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Running);
    QTest::mouseClick(editor->ActiveMovie1, Qt::LeftButton);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
}

} // namespace orvanta::test
