#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form7_open_picker.h"
#include "tests/editors/editor_room.h"

#include <QPushButton>
#include <QScrollBar>

namespace orvanta::test {

namespace {

class OpenPicker : public EditorRoom
{
protected:
    void open(const QString& pattern = u"*.vxl"_s, bool severalFiles = false)
    {
        picker = std::make_unique<Form7>(module, services().boundary, pattern, severalFiles);
        picker->show();
    }
    void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    [[nodiscard]] const QStringList& picked() const { return module.picker.PickedFiles; }

    std::unique_ptr<Form7> picker;
};

} // namespace

TEST_F(OpenPicker, ShowsTheStoredFolderWithItsFirstFileSelected)
{
    putAll({u"b.vxl"_s, u"A.VXL"_s});
    open();
    EXPECT_EQ(picker->File1->folder(), room());
    EXPECT_EQ(picker->FolderTreeview1->folder(), room());
    EXPECT_EQ(picker->File1->selectedNames(), QStringList({u"A.VXL"_s}));
}

TEST_F(OpenPicker, OkGivesTheFileAndStoresTheFolder)
{
    put(u"a.vxl"_s);
    QDir(room()).mkdir(u"sub"_s);
    put(u"sub/b.vxl"_s);
    open();
    picker->FolderTreeview1->setFolder(room(u"sub"_s));
    press(picker->Command1);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"sub/b.vxl"_s)}));
    EXPECT_EQ(stored(u"save"_s, u"open"_s), room(u"sub"_s));
    EXPECT_FALSE(picker->isVisible());
}

TEST_F(OpenPicker, OkWithNoCurrentFileKeepsItOpen)
{
    open();
    module.picker.PickedFiles = {QString(), u"/before"_s};
    press(picker->Command1);
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(picked(), QStringList({QString(), u"/before"_s}));
}

TEST_F(OpenPicker, CancelAndEscLeaveNoEntry1)
{
    for (const bool withKey : {false, true}) {
        module.picker.PickedFiles = {QString(), u"/before"_s};
        put(u"a.vxl"_s);
        open();
        if (withKey) {
            QTest::keyClick(picker->File1, Qt::Key_Escape);
        } else {
            press(picker->Command2);
        }
        EXPECT_EQ(picked(), QStringList({QString()}));
        EXPECT_FALSE(picker->isVisible());
    }
}

TEST_F(OpenPicker, ClosedByTheWindowManagerItLeavesPickedFilesAsTheyWere)
{
    module.picker.PickedFiles = {QString(), u"/before"_s};
    put(u"a.vxl"_s);
    open();
    picker->close();
    EXPECT_EQ(picked(), QStringList({QString(), u"/before"_s}));
    EXPECT_FALSE(picker->isVisible());
}

TEST_F(OpenPicker, SeveralFilesComeInTheListsOrder)
{
    putAll({u"a10.avi"_s, u"a2.avi"_s, u"a1.avi"_s});
    open(u"*.avi"_s, true);
    clickRow(picker->File1, 2);
    clickRow(picker->File1, 0, Qt::ControlModifier);
    press(picker->Command1);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"a1.avi"_s), room(u"a10.avi"_s)}));
}

TEST_F(OpenPicker, WithOneFileAllowedADragSelectsNoMoreThanOne)
{
    putAll({u"a.avi"_s, u"b.avi"_s, u"c.avi"_s});
    open(u"*.avi"_s);
    QWidget* list = picker->File1->viewport();
    const auto at = [&](int row) {
        return picker->File1->visualRect(picker->File1->model()->index(row, 0)).center();
    };
    QTest::mousePress(list, Qt::LeftButton, {}, at(0));
    QMouseEvent move(QEvent::MouseMove, at(2), list->mapToGlobal(at(2)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list, &move);
    QTest::mouseRelease(list, Qt::LeftButton, {}, at(2));
    EXPECT_EQ(picker->File1->selectedNames().size(), 1);
    EXPECT_EQ(picker->File1->selectedNames(), QStringList({picker->File1->FileName()}));
}

TEST_F(OpenPicker, AClickBesideTheNamesDeselectsNothing)
{
    putAll({u"a.avi"_s, u"b.avi"_s, u"c.avi"_s});
    open(u"*.avi"_s, true);
    clickRow(picker->File1, 0);
    clickRow(picker->File1, 1, Qt::ControlModifier);
    QWidget* list = picker->File1->viewport();
    const QPoint beside = list->rect().bottomRight() - QPoint(4, 4);
    QTest::mouseClick(list, Qt::LeftButton, {}, beside);
    QTest::mouseDClick(list, Qt::LeftButton, {}, beside);
    const QPoint third = picker->File1->visualRect(picker->File1->model()->index(2, 0)).center();
    QTest::mousePress(list, Qt::LeftButton, {}, beside);
    QMouseEvent move(QEvent::MouseMove, third, list->mapToGlobal(third), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list, &move);
    QTest::mouseRelease(list, Qt::LeftButton, {}, third);
    EXPECT_EQ(picker->File1->selectedNames(), QStringList({u"a.avi"_s, u"b.avi"_s}));
    EXPECT_TRUE(picker->isVisible());
}

TEST_F(OpenPicker, DoubleClickAndEnterAreOk)
{
    putAll({u"a.vxl"_s, u"b.vxl"_s});
    open();
    clickRow(picker->File1, 1);
    QTest::mouseDClick(picker->File1->viewport(), Qt::LeftButton, {},
                       picker->File1->visualRect(picker->File1->currentIndex()).center());
    EXPECT_EQ(picked(), QStringList({QString(), room(u"b.vxl"_s)}));
    open();
    QTest::keyClick(picker->File1, Qt::Key_Return);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"a.vxl"_s)}));
}

TEST_F(OpenPicker, TypingGoesToAName)
{
    putAll({u"alpha.vxl"_s, u"beta.vxl"_s, u"gamma.vxl"_s});
    open();
    picker->File1->setFocus();
    QTest::keyClicks(picker->File1, u"ga"_s);
    EXPECT_EQ(picker->File1->FileName(), u"gamma.vxl"_s);
}

TEST_F(OpenPicker, TypingGoesToANameWithBlanks)
{
    putAll({u"my clip.vxl"_s, u"my song.vxl"_s, u"mysterious.vxl"_s});
    open();
    QTest::keyClicks(picker->File1, u"my s"_s);
    EXPECT_EQ(picker->File1->FileName(), u"my song.vxl"_s);
}

TEST_F(OpenPicker, ALongNameMakesTheListNoWider)
{
    put(u"a.vxl"_s);
    put(QString(200, u'z') + u".vxl"_s);
    open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(picker.get()));
    const QListView& list = *picker->File1;
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(list.visualRect(list.model()->index(1, 0)).width(), list.viewport()->width());
}

TEST_F(OpenPicker, ATypedFolderIsShownAndATypedFileIsChosen)
{
    QDir(room()).mkdir(u"sub"_s);
    putAll({u"sub/a.vxl"_s, u"sub/b.vxl"_s});
    open();
    typeOver(picker->PathBox, room(u"sub"_s));
    QTest::keyClick(picker->PathBox, Qt::Key_Return);
    EXPECT_EQ(picker->File1->folder(), room(u"sub"_s));
    EXPECT_TRUE(picker->isVisible());
    typeOver(picker->PathBox, room(u"sub/b.vxl"_s));
    QTest::keyClick(picker->PathBox, Qt::Key_Return);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"sub/b.vxl"_s)}));
}

TEST_F(OpenPicker, OkGoesToAPathThatWasTypedInsteadOfTakingAFileOfTheFolderBefore)
{
    put(u"a.vxl"_s);
    QDir(room()).mkdir(u"sub"_s);
    put(u"sub/b.vxl"_s);
    module.picker.PickedFiles = {QString()};
    open();
    typeOver(picker->PathBox, u"/no/such/folder"_s);
    press(picker->Command1);
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(picked(), QStringList({QString()}));
    typeOver(picker->PathBox, room(u"sub"_s));
    press(picker->Command1);
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(picker->File1->folder(), room(u"sub"_s));
    press(picker->Command1);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"sub/b.vxl"_s)}));
}

TEST_F(OpenPicker, AFileThatIsClickedCountsMoreThanAPathTypedBefore)
{
    putAll({u"a.vxl"_s, u"b.vxl"_s});
    open();
    typeOver(picker->PathBox, u"/no/such/folder"_s);
    clickRow(picker->File1, 1);
    EXPECT_EQ(picker->PathBox->text(), room());
    press(picker->Command1);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"b.vxl"_s)}));
}

TEST_F(OpenPicker, ATypedPathThatIsNotThereChangesNothing)
{
    QDir(room()).mkdir(u"sub"_s);
    putAll({u"a.vxl"_s, u"b.vxl"_s, u"other.txt"_s, u"sub/a.vxl"_s});
    open();
    picker->File1->selectName(u"b.vxl"_s);
    for (const QString& typed : {u"/no/such/folder"_s, room(u"missing.vxl"_s), u"missing.vxl"_s,
                                 room(u"other.txt"_s), room(u"sub/missing.vxl"_s)}) {
        typeOver(picker->PathBox, typed);
        QTest::keyClick(picker->PathBox, Qt::Key_Return);
        press(picker->Command1);
        EXPECT_TRUE(picker->isVisible());
        EXPECT_EQ(picker->File1->folder(), room());
        EXPECT_EQ(picker->FolderTreeview1->folder(), room());
        EXPECT_EQ(picker->File1->selectedNames(), QStringList({u"b.vxl"_s}));
        EXPECT_EQ(picker->PathBox->text(), typed);
        EXPECT_EQ(picked(), QStringList({QString()}));
    }
}

TEST_F(OpenPicker, AFolderThatVanishesLeavesTheListWithItsFormerOne)
{
    put(u"a.vxl"_s);
    QDir(room()).mkpath(u"sub"_s);
    open();
    const QModelIndex parent = picker->FolderTreeview1->currentIndex();
    picker->FolderTreeview1->expand(parent);
    QDir(room()).rmdir(u"sub"_s);
    picker->FolderTreeview1->setCurrentIndex(picker->FolderTreeview1->model()->index(0, 0, parent));
    EXPECT_EQ(picker->File1->folder(), room());
    EXPECT_EQ(picker->File1->names(), QStringList({u"a.vxl"_s}));
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(OpenPicker, AFileDeletedWhileItIsListedIsGivenWithoutAMessage)
{
    put(u"a.vxl"_s);
    open();
    QFile::remove(room(u"a.vxl"_s));
    press(picker->Command1);
    EXPECT_EQ(picked(), QStringList({QString(), room(u"a.vxl"_s)}));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(OpenPicker, IsRussianForAnyLanguageButOne)
{
    struct Row
    {
        QString language;
        QString cancel;
        QString fileTip;
        QString folderTip;
    };
    const Row rows[] = {{u"1"_s, u"Cancel"_s, u"Select file"_s, u"Select folder"_s},
                        {u"2"_s, u"Отмена"_s, u"Выберите файл"_s, u"Выберите папку"_s},
                        {u"0"_s, u"Отмена"_s, u"Выберите файл"_s, u"Выберите папку"_s},
                        {u"x"_s, u"Отмена"_s, u"Выберите файл"_s, u"Выберите папку"_s}};
    for (const Row& row : rows) {
        set(u"main"_s, u"language"_s, row.language);
        open();
        EXPECT_EQ(picker->Command2->text(), row.cancel) << qPrintable(row.language);
        EXPECT_EQ(picker->File1->toolTip(), row.fileTip);
        EXPECT_EQ(picker->FolderTreeview1->toolTip(), row.folderTip);
        EXPECT_EQ(picker->windowTitle(), u"!Orvanta!"_s);
        EXPECT_EQ(picker->Command1->text(), QString());
    }
}

TEST_F(OpenPicker, StartsInTheUsersFolderWhenTheStoredOneIsGone)
{
    set(u"save"_s, u"open"_s, u"/no/such/folder"_s);
    open();
    EXPECT_EQ(picker->File1->folder(), QDir::homePath());
}

} // namespace orvanta::test
