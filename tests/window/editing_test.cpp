// Editing what is open in the main window: keys, mouse, the strip.
#include "playback/command_menu.h"
#include "tests/window/editing_fixture.h"
#include "window/waveform_strip.h"

#include <QContextMenuEvent>
#include <QTimer>

namespace orvanta::test {

TEST_F(EditingInTheWindow, ComesAndGoesByKeyAndButtonAndShowsItsControlsOnlyMeanwhile)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    const int usual = skin::kRowHeight;
    EXPECT_TRUE(window->Editing->isVisible());
    EXPECT_TRUE(window->Strip->isVisible());
    EXPECT_TRUE(window->EditButton->isChecked());
    EXPECT_GT(window->List1->rowHeight(), usual);
    click(window->Editing->DoneButton);
    EXPECT_FALSE(mode().isOn());
    EXPECT_FALSE(window->Editing->isVisible());
    EXPECT_FALSE(window->Strip->isVisible());
    EXPECT_FALSE(window->EditButton->isChecked());
    EXPECT_TRUE(window->Image8->isVisible());
    EXPECT_EQ(window->List1->rowHeight(), usual);
    EXPECT_EQ(window->Notice->text(), QString());
    click(window->EditButton);
    EXPECT_TRUE(mode().isOn());
}

TEST_F(EditingInTheWindow, HasNothingToEditWhileNothingIsOpen)
{
    show();
    press(Qt::Key_F4);
    EXPECT_FALSE(mode().isOn());
    EXPECT_FALSE(window->Editing->isVisible());
}

TEST_F(EditingInTheWindow, LeavesTheKeysAloneOutsideTheMode)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F4);
    for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F2}) {
        press(key);
    }
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(times(), (QStringList{u"000000.00"_s, u"000020.00"_s}));
    EXPECT_FALSE(box().isOpen());
    EXPECT_TRUE(pickers.calls.filter(u"save"_s).isEmpty());
}

TEST_F(EditingInTheWindow, SetsMarksWithTextsWhileTheFilmRunsOn)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    playTo(4.25);
    press(Qt::Key_Insert);
    EXPECT_EQ(box().selectedText(), u"Mark 2");
    type(u"four"_s);
    playTo(9);
    QTest::keyClick(&box(), Qt::Key_Insert);
    EXPECT_EQ(texts(), (QStringList{u"line 1"_s, u"four"_s, u"Mark 3"_s, u"line 2"_s}));
    type(u"nine"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(texts(), (QStringList{u"line 1"_s, u"four"_s, u"nine"_s, u"line 2"_s}));
    EXPECT_EQ(times()[1], u"000004.25");
    EXPECT_TRUE(window->List1->hasFocus());
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(control.calls.filter(u"seek"_s).isEmpty());
    EXPECT_TRUE(control.calls.filter(u"load"_s).isEmpty());
}

TEST_F(EditingInTheWindow, KeepsTheMarkWhoseTextIsGivenUp)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    playTo(4);
    press(Qt::Key_M, Qt::ControlModifier);
    type(u"never"_s);
    QTest::keyClick(&box(), Qt::Key_Escape);
    EXPECT_EQ(texts(), (QStringList{u"line 1"_s, u"Mark 2"_s, u"line 2"_s}));
    EXPECT_EQ(line(), 3);
}

TEST_F(EditingInTheWindow, ShowsTheTextOfTheLineThatPlaysAsItIsEdited)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    playTo(4);
    press(Qt::Key_Insert);
    EXPECT_EQ(module.playlist.CurrentClip, 2);
    EXPECT_EQ(window->Text2->text(), u"Mark 2");
    type(u"four"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(window->Text2->text(), u"four");
}

TEST_F(EditingInTheWindow, EditsTextAndTimeInPlaceAndKeepsTheOrderOfTime)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s, u"000030.00"_s});
    window->List1->setCursorLine(2);
    press(Qt::Key_F2);
    type(u"late"_s);
    QTest::keyClick(&box(), Qt::Key_Tab);
    EXPECT_EQ(box().text(), u"0:00.00");
    type(u"25,5"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(texts(), (QStringList{u"line 2"_s, u"late"_s, u"line 3"_s}));
    EXPECT_EQ(times(), (QStringList{u"000020.00"_s, u"000025.50"_s, u"000030.00"_s}));
    press(Qt::Key_Return);
    QTest::keyClick(&box(), Qt::Key_Tab);
    type(u"soon"_s); // no time
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(times()[1], u"000025.50");
    EXPECT_EQ(mode().editing().undoName(), EditName::Time);
}

TEST_F(EditingInTheWindow, MovesABrakeByKeysAndPlaysOnFromIt)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s, u"000030.00"_s});
    window->List1->setCursorLine(3);
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(times()[1], u"000020.10");
    EXPECT_EQ(module.playlist.CurrentClip, 2);
    EXPECT_EQ(control.CurrentPosition(), 20.1);
    press(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(times()[1], u"000019.10");
    EXPECT_EQ(control.CurrentPosition(), 19.1);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(EditingInTheWindow, IsHeardBeforeTheEndMarkThatMoves)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    window->List1->setCursorLine(3);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(times()[1], u"000019.90");
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 18.9);
    EXPECT_EQ(module.playlist.CurrentClip, 1);
}

TEST_F(EditingInTheWindow, TheEndMarkOfAnotherPacketIsHeardThereAndNotInWhatPlays)
{
    const auto film = [this](const QString& name) {
        return home.write(name,
                          "[main]\nfiles=1\nfile=" + home.write(u"film.avi"_s, "media").toUtf8() +
                              "\nbrakes=2\n[brake1]\ntime=000000.00\n[brake2]\ntime=000020.00\n");
    };
    openPacket(writeDocument(u"g.vxg"_s, {film(u"a.vxl"_s), film(u"b.vxl"_s)}, {u"A"_s, u"B"_s}),
               1);
    playTo(4);
    window->List1->setCursorLine(6);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(module.playlist.packet(2).clip(2).Time, u"000019.90");
    EXPECT_EQ(module.playlist.CurrentPacket, 2);
    EXPECT_EQ(module.playlist.CurrentClip, 1); // the line before the end mark begins
}

TEST_F(EditingInTheWindow, RemovesAndMovesSeveralLinesAndUndoesEachInOneStep)
{
    openClips({u"one"_s, u"two"_s, u"three"_s, u"four"_s});
    window->List1->setCursorLine(3);
    QTest::keyClick(window->List1, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(window->List1->selectedLines(), (std::vector<int>{3, 4}));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(texts(), (QStringList{u"two"_s, u"three"_s, u"one"_s, u"four"_s}));
    EXPECT_EQ(window->List1->selectedLines(), (std::vector<int>{2, 3}));
    press(Qt::Key_Delete);
    EXPECT_EQ(texts(), (QStringList{u"one"_s, u"four"_s}));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(texts(), (QStringList{u"two"_s, u"three"_s, u"one"_s, u"four"_s}));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(texts(), (QStringList{u"one"_s, u"two"_s, u"three"_s, u"four"_s}));
    EXPECT_FALSE(window->Editing->UndoButton->isEnabled());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(texts(), (QStringList{u"one"_s, u"four"_s}));
}

TEST_F(EditingInTheWindow, KeepsSeveralSelectedLinesUnderTheMenuOfOneOfThem)
{
    openClips({u"one"_s, u"two"_s, u"three"_s});
    const auto rightClick = [&](int row) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, textOfRow(row),
                                window->List1->viewport()->mapToGlobal(textOfRow(row)));
        QCoreApplication::sendEvent(window->List1->viewport(), &event);
        window->ListMenu->close();
    };
    window->List1->setCursorLine(3);
    press(Qt::Key_Down, Qt::ShiftModifier);
    rightClick(3);
    EXPECT_EQ(window->List1->selectedLines(), (std::vector{3, 4}));
    EXPECT_EQ(line(), 3);
    rightClick(2); // another line is taken alone
    EXPECT_EQ(window->List1->selectedLines(), (std::vector{2}));
}

TEST_F(EditingInTheWindow, SaysWhatUndoWouldTakeBack)
{
    openClips({u"one"_s, u"two"_s}, 2);
    EXPECT_EQ(window->Editing->UndoButton->accessibleName(), u"Отменить");
    press(Qt::Key_Delete);
    EXPECT_EQ(window->Editing->UndoButton->accessibleName(), u"Отменить: удаление");
    click(window->Editing->UndoButton);
    EXPECT_EQ(window->Editing->RedoButton->accessibleName(), u"Вернуть: удаление");
    EXPECT_EQ(texts().size(), 2);
}

TEST_F(EditingInTheWindow, LetsTheClipPlayOnWhoseLineMoves)
{
    openClips({u"one"_s, u"two"_s, u"three"_s});
    window->List1->setCursorLine(2);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(module.playlist.CurrentClip, 2);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(control.calls.isEmpty()) << qPrintable(control.calls.join(u", "_s));
    engine->tick();
    EXPECT_EQ(window->List1->signOf(3), PlayingSign::Playing);
    option("agnc");
    control.reachEnd();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        engine->tick();
        return control.FileName().endsWith(u"three.avi");
    }));
}

TEST_F(EditingInTheWindow, GoesOnBehindTheLineThatIsRemovedWhileItPlays)
{
    openClips({u"one"_s, u"two"_s, u"three"_s});
    option("agnc");
    window->List1->setCursorLine(2);
    press(Qt::Key_Delete);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(control.calls.isEmpty());
    control.reachEnd();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        engine->tick();
        return control.FileName().endsWith(u"two.avi");
    }));
    EXPECT_EQ(module.playlist.CurrentClip, 1);
}

TEST_F(EditingInTheWindow, KeepsTheChecksOfItsLines)
{
    openClips({u"one"_s, u"two"_s, u"three"_s});
    window->List1->toggleLine(3);
    window->List1->setCursorLine(3);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(window->List1->isLineChecked(3));
    EXPECT_FALSE(window->List1->isLineChecked(4));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(window->List1->isLineChecked(3));
}

TEST_F(EditingInTheWindow, MakesAPacketOfBrakesOfTheOnlyClipAndPlaysOnInIt)
{
    openClips({u"one"_s});
    playTo(7);
    press(Qt::Key_Insert);
    QTest::keyClick(&box(), Qt::Key_Return);
    ASSERT_TRUE(module.playlist.packet(1).HasBrakes);
    EXPECT_EQ(texts(), (QStringList{u"Mark 1"_s, u"End"_s}));
    EXPECT_EQ(times(), (QStringList{u"000007.00"_s, u"000060.00"_s}));
    EXPECT_EQ(module.playlist.CurrentClip, 1);
    EXPECT_TRUE(control.calls.filter(u"load"_s).isEmpty());
    playTo(9);
    press(Qt::Key_Insert);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(texts(), (QStringList{u"Mark 1"_s, u"Mark 2"_s, u"End"_s}));
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(module.playlist.packet(1).HasBrakes);
    EXPECT_EQ(module.playlist.CurrentClip, 1);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(EditingInTheWindow, GoesOnMarkingInTheNewPacketBehindAListOfClips)
{
    openClips({u"one"_s, u"two"_s});
    playTo(7);
    press(Qt::Key_Insert);
    QTest::keyClick(&box(), Qt::Key_Return);
    ASSERT_EQ(module.playlist.PlaylistCount, 2);
    EXPECT_EQ(module.playlist.CurrentPacket, 2);
    playTo(9);
    press(Qt::Key_Insert);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(module.playlist.PlaylistCount, 2);
    EXPECT_EQ(texts(2), (QStringList{u"Mark 1"_s, u"Mark 2"_s, u"End"_s}));
    press(Qt::Key_S, Qt::ControlModifier); // a packet and another: that is a group
    EXPECT_EQ(pickers.calls.last(), u"save *.vxg");
}

TEST_F(EditingInTheWindow, CannotMarkWhatDoesNotPlay)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    click(window->Image4);
    engine->operations().UnloadMedia();
    engine->tick();
    press(Qt::Key_Insert);
    EXPECT_EQ(times().size(), 2);
}

TEST_F(EditingInTheWindow, OffersMarksByButtonAsSoonAsAClipPlaysAgain)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    const QPushButton& mark = *window->Editing->MarkButton;
    EXPECT_TRUE(mark.isEnabled());
    click(window->Image4);
    engine->operations().UnloadMedia();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !mark.isEnabled(); }));
    control.autoOpen = false; // the cursor is there before the clip has opened
    QTimer::singleShot(0, &control, [&] {
        EXPECT_FALSE(mark.isEnabled());
        control.completeOpening();
    });
    engine->ListClick(1, 1);
    engine->tick();
    EXPECT_TRUE(QTest::qWaitFor([&] { return mark.isEnabled(); }));
}

TEST_F(EditingInTheWindow, ShowsTimesAndTheEndMark)
{
    openBrakes({u"000004.25"_s, u"000064.00"_s});
    const QAbstractItemModel& model = *window->List1->model();
    EXPECT_EQ(model.index(2, 0).data(Qt::AccessibleDescriptionRole).toString(),
              u"at 0:04.25, playing"_s);
    EXPECT_EQ(model.index(3, 0).data(Qt::AccessibleDescriptionRole).toString(),
              u"end mark at 1:04.00"_s);
    press(Qt::Key_F4);
    EXPECT_FALSE(model.index(3, 0).data(Qt::AccessibleDescriptionRole).isValid());
}

TEST_F(EditingInTheWindow, TakesFilesDroppedBetweenTwoLines)
{
    openClips({u"one"_s, u"two"_s});
    const QString file = home.write(u"new.avi"_s, "media");
    Q_EMIT window->List1->filesDroppedBefore({file}, 3);
    EXPECT_EQ(texts(), (QStringList{u"one"_s, u"new"_s, u"two"_s}));
    Q_EMIT window->List1->filesDroppedBefore({writePacket(u"p.vxl"_s, {u"x"_s})}, 3);
    EXPECT_EQ(module.playlist.PlaylistCount, 2);
    EXPECT_EQ(texts(2), (QStringList{u"x"_s}));
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(texts(), (QStringList{u"one"_s, u"two"_s}));
}

TEST_F(EditingInTheWindow, TakesDraggedLinesToTheirNewPlace)
{
    openClips({u"one"_s, u"two"_s, u"three"_s});
    window->List1->setCursorLine(2);
    Q_EMIT window->List1->linesDropped(4);
    EXPECT_EQ(texts(), (QStringList{u"two"_s, u"one"_s, u"three"_s}));
    Q_EMIT window->List1->linesDropped(5); // behind all
    EXPECT_EQ(texts(), (QStringList{u"two"_s, u"three"_s, u"one"_s}));
}

TEST_F(EditingInTheWindow, HasItsCommandsInTheMenuOnlyMeanwhile)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    const QAction* mark = window->ListMenu->entryOf(Command::Mark);
    ASSERT_NE(mark, nullptr);
    Q_EMIT window->List1->menuAsked(QPoint(10, 10));
    EXPECT_TRUE(mark->isEnabled());
    EXPECT_FALSE(window->ListMenu->entryOf(Command::Undo)->isEnabled());
    EXPECT_TRUE(window->ListMenu->entryOf(Command::EditMode)->isChecked());
    QAction* const submenu = qobject_cast<QMenu*>(mark->associatedObjects().value(0))->menuAction();
    EXPECT_TRUE(submenu->isVisible());
    window->ListMenu->close();
    press(Qt::Key_F4);
    Q_EMIT window->List1->menuAsked(QPoint(10, 10));
    EXPECT_FALSE(submenu->isVisible());
    EXPECT_FALSE(window->ListMenu->entryOf(Command::EditMode)->isChecked());
    window->ListMenu->close();
}

TEST_F(EditingInTheWindow, DragsABrakeInTheStrip)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s, u"000040.00"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->Strip->length() == 60; }));
    Q_EMIT window->Strip->brakeChosen(1);
    EXPECT_EQ(line(), 3);
    Q_EMIT window->Strip->brakeDragged(1, 22.5);
    EXPECT_EQ(times()[1], u"000022.50");
    Q_EMIT window->Strip->placeAsked(30);
    EXPECT_EQ(control.CurrentPosition(), 30);
}

TEST_F(EditingInTheWindow, SaysWhenAClipSuggestsNothing)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    EditingSound& sound = *mode().findChild<EditingSound*>();
    Q_EMIT sound.marksFound({});
    EXPECT_EQ(window->Notice->text(), u"The clip gives no marks for that");
    Q_EMIT sound.marksFound({{3, u"three"_s}, {5, {}}, {20, u"there already"_s}});
    EXPECT_EQ(window->Notice->text(), u"Marks set: 2");
    EXPECT_EQ(texts(), (QStringList{u"line 1"_s, u"three"_s, u"Mark 2"_s, u"line 2"_s}));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(times().size(), 2);
}

TEST_F(EditingInTheWindow, OffersNoSuggestionsWhileNothingPlays)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    QMenu& more = *window->Editing->More;
    const QAction& marks = *more.actions()[3]; // behind saving, versions and a line
    ASSERT_NE(marks.menu(), nullptr);
    Q_EMIT more.aboutToShow();
    EXPECT_TRUE(marks.isEnabled());
    click(window->Image4);
    engine->operations().UnloadMedia();
    Q_EMIT more.aboutToShow();
    EXPECT_FALSE(marks.isEnabled());
}

TEST_F(EditingInTheWindow, HasAPicturesPlaceInTheLinesOfAGroupsPackets)
{
    const QString member = writePacket(u"m.vxl"_s, {u"one"_s});
    openPacket(writeDocument(u"g.vxg"_s, {member}, {u"Member"_s}), 1);
    const QModelIndex packet = window->List1->model()->index(1, 0);
    const QPoint place = window->List1->timeArea(1).center();
    const QString picture = home.write(u"p.png"_s, "picture");
    pickers.answer = {picture};
    QTest::mouseClick(window->List1->viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(pickers.calls.last().contains(u"*.png"_s));
    EXPECT_EQ(module.playlist.packet(1).Picture, u"p.png");
    EXPECT_EQ(packet.data(Qt::AccessibleDescriptionRole).toString(), u"Packet, picture p.png"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(module.playlist.packet(1).Picture, QString());
    Q_EMIT window->List1->filesDroppedBefore({home.write(u"q.PNG"_s, "picture")}, 2);
    EXPECT_EQ(module.playlist.packet(1).Picture, u"q.PNG");
    EXPECT_EQ(module.playlist.packet(1).ClipCount, 1);
}

TEST_F(EditingInTheWindow, TakesTheFrameThatIsShowingAsAPacketsPicture)
{
    openPacket(writeDocument(u"g.vxg"_s, {writePacket(u"m.vxl"_s, {u"one"_s})}, {u"Member"_s}), 1);
    window->List1->setCursorLine(2);
    QMenu& more = *window->Editing->More;
    const QString caption = interfaceText(u"EditingMode", u"more.frame", TextLanguage::English);
    const auto entries = more.actions();
    const auto entry = std::find_if(entries.begin(), entries.end(), [&](const QAction* action) {
        return action->text() == caption;
    });
    ASSERT_NE(entry, entries.end());
    Q_EMIT more.aboutToShow();
    EXPECT_FALSE((*entry)->isEnabled()); // nothing is showing
    frame = QImage(64, 36, QImage::Format_RGB32);
    frame.fill(Qt::red);
    Q_EMIT more.aboutToShow();
    EXPECT_TRUE((*entry)->isEnabled());
    (*entry)->trigger();
    EXPECT_EQ(module.playlist.packet(1).Picture, u"g 1.png");
    EXPECT_EQ(QImage(home.file(u"g 1.png"_s)).convertToFormat(frame.format()), frame);
    (*entry)->trigger(); // the picture before is not written over
    EXPECT_EQ(module.playlist.packet(1).Picture, u"g 1 2.png");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(kept(u"file1", u"picture", u"g.vxg"_s), u"g 1 2.png");
}

TEST_F(EditingInTheWindow, HasRoomForWhatStandsInAPicturesPlaceInBothLanguages)
{
    openPacket(writeDocument(u"g.vxg"_s, {writePacket(u"m.vxl"_s, {u"one"_s})}, {u"Member"_s}), 1);
    constexpr int kMargin = 4; // pixels, at the right
    const QFontMetrics metrics(window->List1->font());
    for (const TextLanguage language : {TextLanguage::English, TextLanguage::Russian}) {
        const QString text = interfaceText(u"EditingMode", u"picture.none", language);
        EXPECT_LE(metrics.horizontalAdvance(text), window->List1->timeArea(1).width() - kMargin)
            << text.toStdString();
    }
}

TEST_F(EditingInTheWindow, EditsTheTitlesOfAGroupInPlace)
{
    openPacket(writeDocument(u"g.vxg"_s, {writePacket(u"m.vxl"_s, {u"one"_s})}, {u"Member"_s}), 1);
    window->List1->setCursorLine(1);
    press(Qt::Key_F2);
    type(u"Title"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(kept(u"file1", u"text", u"g.vxg"_s), u"Title");
}

} // namespace orvanta::test
