#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form10_save_picker.h"
#include "tests/editors/editor_room.h"
#include "tests/support/plain_user.h"

#include <QLabel>
#include <QPushButton>

namespace orvanta::test {

namespace {

class SavePicker : public EditorRoom
{
protected:
    void open(const QString& pattern = u"*.vxl"_s, const QString& proposedName = {})
    {
        picker = std::make_unique<Form10>(module, services().boundary, pattern, proposedName);
        picker->show();
    }
    void pressOk() { QTest::mouseClick(picker->Command1, Qt::LeftButton); }
    [[nodiscard]] const QString& saved() const { return module.picker.SaveFileName; }

    std::unique_ptr<Form10> picker;
};

} // namespace

TEST_F(SavePicker, BeginsWithNoNameAndNothingChosen)
{
    module.picker.SaveFileName = u"/before"_s;
    open();
    EXPECT_EQ(picker->Text1->text(), u"no name"_s);
    EXPECT_EQ(saved(), QString());
}

TEST_F(SavePicker, IsRussianForAnyLanguageButOne)
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
        EXPECT_EQ(picker->Text1->text(), u"no name"_s);
    }
}

TEST_F(SavePicker, SpaceOnTheFirstFileTakesItsNameAsAClickDoes)
{
    put(u"lesson.vxl"_s);
    open();
    picker->File1->setFocus();
    QTest::keyClick(picker->File1, Qt::Key_Space);
    EXPECT_EQ(picker->Text1->text(), u"lesson"_s);
}

TEST_F(SavePicker, BeginsWithTheNameThatItsCallerProposesReadyToBeTypedOver)
{
    put(u"lesson.vxl"_s);
    open(u"*.vxl"_s, u"lesson"_s);
    EXPECT_EQ(picker->Text1->selectedText(), u"lesson"_s);
    EXPECT_EQ(picker->Label1->text(), u"This file exists and will be replaced."_s);
    pressOk();
    EXPECT_EQ(saved(), room(u"lesson.vxl"_s));
}

TEST_F(SavePicker, OkGivesFolderNameAndExtensionAndStoresTheFolder)
{
    QDir(room()).mkdir(u"sub"_s);
    open(u"*.vxg"_s);
    picker->FolderTreeview1->setFolder(room(u"sub"_s));
    typeOver(picker->Text1, u"mine"_s);
    pressOk();
    EXPECT_EQ(saved(), room(u"sub/mine.vxg"_s));
    EXPECT_EQ(stored(u"save"_s, u"open"_s), room(u"sub"_s));
    EXPECT_FALSE(picker->isVisible());
}

TEST_F(SavePicker, AppendsTheExtensionAlsoToANameThatEndsInIt)
{
    open();
    typeOver(picker->Text1, u"a.vxl"_s);
    pressOk();
    EXPECT_EQ(saved(), room(u"a.vxl.vxl"_s));
}

TEST_F(SavePicker, ClickingAFileCopiesItsNameWithoutExtension)
{
    putAll({u"a.vxl"_s, u"b.c.vxl"_s});
    open();
    clickRow(picker->File1, 1);
    EXPECT_EQ(picker->Text1->text(), u"b.c"_s);
    clickRow(picker->File1, 0);
    EXPECT_EQ(picker->Text1->text(), u"a"_s);
    pressOk();
    EXPECT_EQ(saved(), room(u"a.vxl"_s));
}

TEST_F(SavePicker, AClickWithControlKeepsTheFileChosen)
{
    put(u"a.vxl"_s);
    open();
    clickRow(picker->File1, 0, Qt::ControlModifier);
    EXPECT_EQ(picker->Text1->text(), u"a"_s);
    EXPECT_EQ(picker->File1->selectedNames(), QStringList({u"a.vxl"_s}));
}

TEST_F(SavePicker, ADoubleClickTakesTheFilesNameAndIsOk)
{
    putAll({u"a.vxl"_s, u"b.vxl"_s});
    open();
    clickRow(picker->File1, 1);
    QTest::mouseDClick(picker->File1->viewport(), Qt::LeftButton, {},
                       picker->File1->visualRect(picker->File1->currentIndex()).center());
    EXPECT_EQ(saved(), room(u"b.vxl"_s));
    EXPECT_FALSE(picker->isVisible());
}

TEST_F(SavePicker, SaysProminentlyInWhichFolderTheFileWillLie)
{
    QDir(room()).mkdir(u"sub & <b>"_s);
    open();
    EXPECT_EQ(picker->FolderLabel->text(), u"In the folder \"room\""_s);
    EXPECT_TRUE(picker->FolderLabel->font().bold());
    picker->FolderTreeview1->setFolder(room(u"sub & <b>"_s));
    EXPECT_EQ(picker->FolderLabel->text(), u"In the folder \"sub & <b>\""_s);
    QDir(room()).mkdir(QString(200, u'w'));
    picker->FolderTreeview1->setFolder(room(QString(200, u'w')));
    EXPECT_TRUE(picker->FolderLabel->toolTip().contains(QString(200, u'w')));
    EXPECT_LT(picker->FolderLabel->sizeHint().width(), picker->width());
    picker->FolderTreeview1->setFolder(u"/"_s);
    EXPECT_EQ(picker->FolderLabel->text(), u"In the folder \"/\""_s);
}

TEST_F(SavePicker, AnotherFolderKeepsTheTypedName)
{
    QDir(room()).mkdir(u"sub"_s);
    put(u"sub/there.vxl"_s);
    open();
    typeOver(picker->Text1, u"mine"_s);
    picker->FolderTreeview1->setFolder(room(u"sub"_s));
    EXPECT_EQ(picker->Text1->text(), u"mine"_s);
}

TEST_F(SavePicker, OkWithAnEmptyNameKeepsItOpen)
{
    open();
    picker->Text1->clear();
    pressOk();
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(saved(), QString());
}

TEST_F(SavePicker, CancelEscAndClosingLeaveNothingChosen)
{
    const auto ways = {+[](Form10& form) { QTest::mouseClick(form.Command2, Qt::LeftButton); },
                       +[](Form10& form) { QTest::keyClick(form.Text1, Qt::Key_Escape); },
                       +[](Form10& form) { form.close(); }};
    for (const auto leave : ways) {
        open();
        leave(*picker);
        EXPECT_FALSE(picker->isVisible());
        EXPECT_EQ(saved(), QString());
    }
}

TEST_F(SavePicker, AQuietLineSaysThatAFileWillBeReplaced)
{
    put(u"a.vxl"_s);
    open();
    EXPECT_EQ(picker->Label1->text(), QString());
    typeOver(picker->Text1, u"a"_s);
    EXPECT_EQ(picker->Label1->text(), u"This file exists and will be replaced."_s);
    typeOver(picker->Text1, u"new"_s);
    EXPECT_EQ(picker->Label1->text(), QString());
}

TEST_F(SavePicker, TheLineSaysThatNothingCanBeSavedUnderAName)
{
    QDir(room()).mkdir(u"folder.vxl"_s);
    open();
    for (const QString& name : {u"no folder/a"_s, u"folder"_s, QString(252, u'a')}) {
        typeOver(picker->Text1, name);
        EXPECT_EQ(picker->Label1->text(), u"Nothing can be saved here under this name."_s)
            << qPrintable(name);
    }
    typeOver(picker->Text1, QString(251, u'a'));
    EXPECT_EQ(picker->Label1->text(), QString());
}

// Each file in a folder of the user's own: what is protected is the file alone, or its folder.
TEST_F(SavePicker, TheLineSaysThatAProtectedFileOrFolderCannotBeSavedTo)
{
    const QString denied = u"Nothing can be saved here under this name."_s;
    open();
    EXPECT_TRUE(holdsForPlainUser([&] {
        const QTemporaryDir folder;
        QDir(folder.path()).mkdir(u"locked"_s);
        for (const QString& name : {u"mine.vxl"_s, u"protected.vxl"_s, u"locked/mine.vxl"_s}) {
            ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        }
        QFile::link(u"locked/mine.vxl"_s, folder.filePath(u"link.vxl"_s));
        const auto protect = [&](const QString& name, QFile::Permissions rights) {
            ASSERT_TRUE(QFile::setPermissions(folder.filePath(name), rights));
        };
        protect(u"protected.vxl"_s, QFile::ReadOwner);
        protect(u"locked"_s, QFile::ReadOwner | QFile::ExeOwner);
        const auto lineFor = [&](const QString& at, const QString& name) {
            picker->FolderTreeview1->setFolder(at.isEmpty() ? folder.path() : folder.filePath(at));
            picker->Text1->setText(name);
            return picker->Label1->text();
        };
        EXPECT_EQ(lineFor({}, u"new"_s), QString());
        EXPECT_EQ(lineFor({}, u"mine"_s), u"This file exists and will be replaced."_s);
        EXPECT_EQ(lineFor({}, u"protected"_s), denied);
        EXPECT_EQ(lineFor({}, u"link"_s), denied);
        EXPECT_EQ(lineFor(u"locked"_s, u"new"_s), denied);
        EXPECT_EQ(lineFor(u"locked"_s, u"mine"_s), denied);
        protect(u"locked"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }));
}

TEST_F(SavePicker, OkWithAPathTypedGoesThereFirstAndKeepsTheName)
{
    QDir(room()).mkdir(u"sub"_s);
    put(u"sub/mine.vxl"_s);
    open();
    typeOver(picker->PathBox, room(u"sub"_s));
    typeOver(picker->Text1, u"mine"_s);
    pressOk();
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(saved(), QString());
    EXPECT_EQ(picker->Label1->text(), u"This file exists and will be replaced."_s);
    pressOk();
    EXPECT_EQ(saved(), room(u"sub/mine.vxl"_s));
}

TEST_F(SavePicker, APastedPathSetsFolderAndName)
{
    QDir(room()).mkdir(u"sub"_s);
    open();
    typeOver(picker->PathBox, room(u"sub/new.vxl"_s));
    QTest::keyClick(picker->PathBox, Qt::Key_Return);
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(picker->Text1->text(), u"new"_s);
    pressOk();
    EXPECT_EQ(saved(), room(u"sub/new.vxl"_s));
}

} // namespace orvanta::test
