// What the packet editor's clip mode and the group editor do alike.

#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/editor_room.h"

#include <QAccessible>

#include <type_traits>

namespace orvanta::test {

template <typename Form> class BothEditors : public EditorOnScreen<Form>
{
protected:
    [[nodiscard]] static QString named(const QString& name)
    {
        return name + (std::is_same_v<Form, Form6> ? u".vxg"_s : u".vxl"_s);
    }
    [[nodiscard]] bool hasCreated() const
    {
        return QFile::exists(this->temporary(named(u"temp"_s)));
    }
    void expectEntries(const QStringList& expected) const { EXPECT_EQ(this->entries(), expected); }
    /// Presses a button of the editor.
    void press(QPushButton* EditorWindow::*button) const
    {
        QTest::mouseClick((*this->editor).*button, Qt::LeftButton);
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::keyClick(this->editor->List1, pressed, keys);
    }
};

using Editors = testing::Types<Form5, Form6>;
TYPED_TEST_SUITE(BothEditors, Editors);

TYPED_TEST(BothEditors, RemoveTheSelectedEntryOrAllOfThem)
{
    this->openWith({u"a{}1"_s, u"b{}2"_s, u"c{}3"_s});
    this->press(&EditorWindow::Command5);
    EXPECT_EQ(this->entries().size(), 3);
    clickRow(this->editor->List1, 1);
    this->press(&EditorWindow::Command5);
    this->expectEntries({u"a{}1"_s, u"c{}3"_s});
    this->press(&EditorWindow::Command6);
    this->expectEntries({});
}

TYPED_TEST(BothEditors, MoveTheSelectedEntryUpToTheEnds)
{
    this->openWith({u"a{}1"_s, u"b{}2"_s, u"c{}3"_s});
    clickRow(this->editor->List1, 0);
    this->press(&EditorWindow::Command9);
    this->expectEntries({u"a{}1"_s, u"b{}2"_s, u"c{}3"_s});
    this->press(&EditorWindow::Command10);
    this->expectEntries({u"b{}2"_s, u"a{}1"_s, u"c{}3"_s});
    EXPECT_EQ(this->selected(), 1);
    this->press(&EditorWindow::Command10);
    this->press(&EditorWindow::Command10);
    this->expectEntries({u"b{}2"_s, u"c{}3"_s, u"a{}1"_s});
    this->press(&EditorWindow::Command5);
    this->expectEntries({u"b{}2"_s, u"c{}3"_s});
}

TYPED_TEST(BothEditors, RemoveAndMoveByKeys)
{
    this->openWith({u"a{}1"_s, u"b{}2"_s, u"c{}3"_s});
    clickRow(this->editor->List1, 2);
    this->key(Qt::Key_Up, Qt::ControlModifier);
    this->expectEntries({u"a{}1"_s, u"c{}3"_s, u"b{}2"_s});
    this->key(Qt::Key_Down, Qt::ControlModifier);
    this->key(Qt::Key_Delete);
    this->expectEntries({u"a{}1"_s, u"b{}2"_s});
}

TYPED_TEST(BothEditors, TakeReturnOnAButtonForAClick)
{
    this->openWith({u"a{}1"_s, u"b{}2"_s}, 0);
    this->editor->Command10->setFocus();
    QTest::keyClick(this->editor->Command10, Qt::Key_Return);
    this->expectEntries({u"b{}2"_s, u"a{}1"_s});
    QTest::keyClick(this->editor->Command10, Qt::Key_Tab);
    this->editor->Text1->setFocus();
    QTest::keyClick(this->editor->Text1, Qt::Key_Return);
    this->expectEntries({u"b{}2"_s, u"a{}1"_s});
    EXPECT_TRUE(this->editor->isVisible());
    this->editor->Command2->setFocus();
    QTest::keyClick(this->editor->Command2, Qt::Key_Enter);
    EXPECT_FALSE(this->editor->isVisible());
}

TYPED_TEST(BothEditors, TakeATextSetByAssistiveTechnologyForTyping)
{
    this->openWith({u"a{}1"_s, u"b{}2"_s});
    clickRow(this->editor->List1, 0);
    QAccessibleInterface* box = QAccessible::queryAccessibleInterface(this->editor->Text1);
    ASSERT_NE(box, nullptr);
    box->setText(QAccessible::Value, u"spoken"_s);
    EXPECT_TRUE(this->entries().at(0).startsWith(u"spoken{}"_s));
    EXPECT_EQ(this->entries().at(1), u"b{}2"_s);
}

TYPED_TEST(BothEditors, StoreTheFolderOfTheirFilesAlsoAfterAPickerHasStoredAnother)
{
    QDir(this->room()).mkdir(u"sub"_s);
    this->openWith({u"a{}1"_s});
    this->editor->FolderTreeview1->setFolder(this->room());
    this->pickers.saveAnswer = this->room(u"sub/out"_s);
    this->press(&EditorWindow::Command4);
    this->set(u"save"_s, u"open"_s, this->room(u"sub"_s)); // as the picker does
    this->editor->close();
    EXPECT_EQ(this->stored(u"save"_s, u"open"_s), this->room());
}

TYPED_TEST(BothEditors, SaveAnEmptyListAsZeroFiles)
{
    this->open();
    this->pickers.saveAnswer = this->room(u"out"_s);
    this->press(&EditorWindow::Command4);
    EXPECT_EQ(this->bytesOf(this->room(u"out"_s)), QByteArray("[main]\r\nfiles=0\r\n"));
    EXPECT_EQ(this->pickers.calls, QStringList(u"save *"_s + this->named({})));
}

TYPED_TEST(BothEditors, DoNothingWhenAPickerIsCancelled)
{
    this->openWith({u"a{}1"_s}, 0);
    this->press(&EditorWindow::Command4);
    this->press(&EditorWindow::Command3);
    this->expectEntries({u"a{}1"_s});
    EXPECT_EQ(QDir(this->room()).entryList(QDir::Files), QStringList());
    EXPECT_EQ(this->pickers.calls,
              QStringList({u"save *"_s + this->named({}), u"open *"_s + this->named({})}));
}

TYPED_TEST(BothEditors, LoadNothingFromAPickerThatIsClosedByItsFrame)
{
    this->openWith({u"a{}1"_s});
    this->module.picker.PickedFiles = {QString(), this->put(u"before"_s, "[main]\nfiles=0\n")};
    this->pickers.closedByFrame = true;
    this->press(&EditorWindow::Command3);
    this->expectEntries({u"a{}1"_s});
}

TYPED_TEST(BothEditors, ProposeTheNameOfTheDocumentThatWasLoadedOrSavedLast)
{
    this->open();
    this->press(&EditorWindow::Command4);
    this->pickers.answer = {this->put(u"my.lesson.vxx"_s, "[main]\nfiles=0\n")};
    this->press(&EditorWindow::Command3);
    this->pickers.saveAnswer = this->room(u"other.vxx"_s);
    this->press(&EditorWindow::Command4);
    this->press(&EditorWindow::Command4);
    EXPECT_EQ(this->pickers.proposals, QStringList({QString(), u"my.lesson"_s, u"other"_s}));
}

TYPED_TEST(BothEditors, EndLoadingSilentlyAtABadCount)
{
    for (const QByteArray count : {"abc", "some", "-1", "99999", ""}) {
        this->pickers.answer = {this->put(u"in"_s, "[main]\nfiles=" + count + "\n")};
        this->openWith({u"old{}old"_s});
        this->press(&EditorWindow::Command3);
        EXPECT_EQ(this->entries(), QStringList()) << count.constData();
        EXPECT_EQ(this->untrapped, QStringList());
        EXPECT_TRUE(this->editor->isVisible());
    }
}

TYPED_TEST(BothEditors, CreateNothingFromAnEmptyList)
{
    this->open();
    this->press(&EditorWindow::Command1);
    EXPECT_FALSE(this->editor->isVisible());
    EXPECT_FALSE(this->module.EditorDone);
    EXPECT_FALSE(this->hasCreated());
}

TYPED_TEST(BothEditors, WriteNothingAtCancelAndLeaveEditorDone)
{
    for (const bool wasDone : {false, true}) {
        this->module.EditorDone = wasDone;
        this->openWith({u"/a{}A{}{No picture}"_s});
        this->press(&EditorWindow::Command2);
        EXPECT_FALSE(this->editor->isVisible());
        EXPECT_EQ(bool(this->module.EditorDone), wasDone);
        EXPECT_FALSE(this->hasCreated());
    }
}

TYPED_TEST(BothEditors, StoreTheFolderWhicheverWayTheyAreClosed)
{
    QDir(this->room()).mkdir(u"sub"_s);
    const auto ways = {+[](TypeParam& form) { QTest::mouseClick(form.Command2, Qt::LeftButton); },
                       +[](TypeParam& form) { QTest::mouseClick(form.Command1, Qt::LeftButton); },
                       +[](TypeParam& form) { form.close(); }};
    for (const auto leave : ways) {
        this->set(u"save"_s, u"open"_s, this->room());
        this->open();
        this->editor->FolderTreeview1->setFolder(this->room(u"sub"_s));
        leave(*this->editor);
        EXPECT_EQ(this->stored(u"save"_s, u"open"_s), this->room(u"sub"_s));
    }
}

} // namespace orvanta::test
