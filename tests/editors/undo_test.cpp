// Undo and redo in both editors: by keys, one step for each thing that the user does.

#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/brake_mode.h"

#include <QLabel>

namespace orvanta::test {

template <typename Form> class UndoInBoth : public EditorOnScreen<Form>
{
protected:
    void openWith(const QStringList& list, int selectedEntry = -1)
    {
        EditorOnScreen<Form>::openWith(list, selectedEntry);
        ASSERT_TRUE(QTest::qWaitForWindowActive(this->editor.get()));
        this->editor->List1->setFocus();
    }
    void press(QPushButton* EditorWindow::*button) const
    {
        QTest::mouseClick((*this->editor).*button, Qt::LeftButton);
    }
    void undo() const { toFocus(Qt::Key_Z, Qt::ControlModifier); }
    void redo() const { toFocus(Qt::Key_Y, Qt::ControlModifier); }
    void toFocus(Qt::Key key, Qt::KeyboardModifiers keys) const
    {
        QTest::keyClick(this->editor->focusWidget(), key, keys);
    }
    /// An entry as this editor's boxes write it.
    [[nodiscard]] static QString entry(const QString& path, const QString& text)
    {
        return path + u"{}"_s + text + (std::is_same_v<Form, Form6> ? u"{}p"_s : QString());
    }
    const QStringList m_three = {entry(u"a"_s, u"1"_s), entry(u"b"_s, u"2"_s),
                                 entry(u"c"_s, u"3"_s)};
};

using UndoingEditors = testing::Types<Form5, Form6>;
TYPED_TEST_SUITE(UndoInBoth, UndoingEditors);

TYPED_TEST(UndoInBoth, EveryButtonOfTheListIsOneStep)
{
    this->putAll({u"x.vxl"_s, u"y.vxl"_s, u"x.avi"_s, u"y.avi"_s});
    this->openWith(this->m_three, 1);
    const auto buttons = {&EditorWindow::Command9, &EditorWindow::Command10,
                          &EditorWindow::Command8, &EditorWindow::Command5,
                          &EditorWindow::Command6};
    QList<QStringList> seen = {this->entries()};
    for (const auto button : buttons) {
        this->press(button);
        EXPECT_NE(this->entries(), seen.last());
        seen.append(this->entries());
    }
    for (qsizetype at = seen.size() - 2; at >= 0; --at) {
        this->undo();
        EXPECT_EQ(this->entries(), seen.at(at)) << at;
    }
    EXPECT_EQ(this->selected(), 1);
    for (qsizetype at = 1; at < seen.size(); ++at) {
        this->redo();
        EXPECT_EQ(this->entries(), seen.at(at)) << at;
    }
    this->toFocus(Qt::Key_Z, Qt::ControlModifier);
    this->toFocus(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(this->entries(), QStringList());
}

TYPED_TEST(UndoInBoth, AFileThatIsAddedIsOneStep)
{
    this->putAll({u"x.vxl"_s, u"x.avi"_s});
    this->openWith(this->m_three, 0);
    clickRow(this->editor->File1, 0);
    ASSERT_EQ(this->entries().size(), 4);
    this->undo();
    EXPECT_EQ(this->entries(), this->m_three);
    EXPECT_EQ(this->editor->Text1->text(), u"a"_s);
}

TYPED_TEST(UndoInBoth, ATextBoxUndoesItsOwnTypingFirstAndThenTheListDoes)
{
    this->openWith(this->m_three, 0);
    this->press(&EditorWindow::Command10);
    clickRow(this->editor->List1, 1);
    this->editor->Text2->setFocus();
    QTest::keyClicks(this->editor->Text2, u"xyz"_s);
    ASSERT_TRUE(this->entries().at(1).contains(u"xyz"_s));
    this->undo();
    EXPECT_EQ(this->editor->Text2->text(), u"1"_s);
    EXPECT_EQ(this->entries().at(1), this->m_three.at(0));
    this->redo();
    EXPECT_TRUE(this->entries().at(1).contains(u"xyz"_s)) << "Ctrl+Y is the box's own, too";
    this->undo();
    this->undo();
    EXPECT_EQ(this->entries().at(0), this->m_three.at(0)) << "the move is taken back";
}

TYPED_TEST(UndoInBoth, TypingInABoxIsOneStepAndTheBoxShowsWhatComesBack)
{
    this->openWith(this->m_three);
    clickRow(this->editor->List1, 0);
    typeOver(this->editor->Text2, u"first"_s);
    clickRow(this->editor->List1, 1);
    typeOver(this->editor->Text2, u"second"_s);
    this->editor->List1->setFocus();
    this->undo();
    EXPECT_TRUE(this->entries().at(0).contains(u"first"_s));
    EXPECT_EQ(this->entries().at(1), this->m_three.at(1));
    EXPECT_EQ(this->editor->Text2->text(), u"2"_s);
    this->undo();
    EXPECT_EQ(this->entries(), this->m_three);
    EXPECT_EQ(this->editor->Text2->text(), u"1"_s);
}

TYPED_TEST(UndoInBoth, ALoadedDocumentIsTakenBackWithItsFolder)
{
    const QString ending = std::is_same_v<Form6, TypeParam> ? u".vxg"_s : u".vxl"_s;
    QDir(this->room()).mkdir(u"sub"_s);
    this->put(u"near.avi"_s);
    this->put(u"sub/near.avi"_s);
    const QByteArray document = "[main]\nfiles=1\n[file1]\npath=near.avi\ntext=A\n";
    this->openWith({});
    const QString first = this->put(u"first"_s + ending, document);
    const QString second = this->put(u"sub/second"_s + ending, document);
    for (const QString& file : {first, second}) {
        this->pickers.answer = {file};
        this->press(&EditorWindow::Command3);
    }
    this->undo();
    EXPECT_EQ(this->entries(), QStringList(u"near.avi{}A"_s));
    EXPECT_TRUE(this->savedBy(this->editor->Command4).contains("path=near.avi\r\n"))
        << "it lies beside the packet that is saved";
    EXPECT_EQ(this->pickers.proposals, QStringList(u"first"_s));
}

namespace {

class UndoOfAGroup : public EditorOnScreen<Form6>
{};

class UndoOfBrakes : public BrakeMode
{
protected:
    void undo() const { QTest::keyClick(editor->List2, Qt::Key_Z, Qt::ControlModifier); }
    void redo() const
    {
        QTest::keyClick(editor->List2, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    void openActive()
    {
        openClip();
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    }
};

} // namespace

TEST_F(UndoOfAGroup, AChosenPictureIsOneStepBesideATypedOne)
{
    openWith({u"a{}1{}p"_s});
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    clickRow(editor->List1, 0);
    typeOver(editor->Text3, u"typed"_s);
    pickers.answer = {u"/p.bmp"_s};
    press(editor->Command7);
    EXPECT_EQ(entries(), QStringList(u"a{}1{}/p.bmp"_s));
    QTest::keyClick(editor->List1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entries(), QStringList(u"a{}1{}typed"_s));
    EXPECT_EQ(editor->Text3->text(), u"typed"_s);
    QTest::keyClick(editor->List1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entries(), QStringList(u"a{}1{}p"_s));
}

TEST_F(UndoOfBrakes, ADragOfTheSliderIsOneStepAndAKeyIsOne)
{
    openActive();
    setBrakes({u"000010.00{}a"_s});
    clickRow(editor->List2, 0);
    drag({0.2, 0.4, 0.6});
    const QStringList dragged = brakes();
    key(Qt::Key_Right);
    ASSERT_NE(brakes(), dragged);
    undo();
    EXPECT_EQ(brakes(), dragged);
    undo();
    EXPECT_EQ(brakes(), QStringList(u"000010.00{}a"_s));
    EXPECT_EQ(editor->Slider1->seconds(), 10);
    redo();
    EXPECT_EQ(brakes(), dragged);
}

TEST_F(UndoOfBrakes, RunsNoPreviewAndTheNextTextGoesToTheTimeThatCameBack)
{
    openActive();
    setBrakes({u"000010.00{}a"_s});
    clickRow(editor->List2, 0);
    key(Qt::Key_PageUp);
    preview->calls.clear();
    undo();
    EXPECT_EQ(preview->calls, QStringList());
    typeOver(editor->Text4, u"b"_s);
    EXPECT_EQ(brakes(), QStringList(u"000010.00{}b"_s));
}

TEST_F(UndoOfBrakes, TheTwoModesHaveHistoriesOfTheirOwn)
{
    openActive();
    editor->List1->change([](EntryList& list) { list.entries = {u"clip{}1"_s}; });
    press(editor->Command15);
    undo();
    EXPECT_EQ(brakes(), QStringList());
    EXPECT_EQ(entries(), QStringList(u"clip{}1"_s));
    redo();
    editor->Option1->click();
    QTest::keyClick(editor->List1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entries(), QStringList());
    EXPECT_EQ(brakes().size(), 1);
}

TEST_F(UndoOfBrakes, BrakesThatAnotherClipHasEmptiedComeBackWithTheirClip)
{
    put(u"other.avi"_s);
    openActive();
    setBrakes({u"000010.00{}a"_s}, 0);
    editor->File2->setFolder(room());
    clickRow(editor->File2, 1);
    ASSERT_EQ(editor->Text3->text(), room(u"other.avi"_s));
    ASSERT_EQ(brakes(), QStringList());
    undo();
    EXPECT_EQ(brakes(), QStringList(u"000010.00{}a"_s));
    EXPECT_EQ(editor->Text3->text(), room(u"clip.avi"_s));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return preview->FileName() == room(u"clip.avi"_s) && preview->isReady(); }));
    typeOver(editor->Text4, u"typed"_s);
    EXPECT_EQ(brakes(), QStringList(u"000010.00{}a"_s)) << "the slider is at the beginning again";
    EXPECT_TRUE(
        savedBy(editor->Command16).contains("\r\nfile=" + room(u"clip.avi"_s).toUtf8() + "\r\n"));
}

} // namespace orvanta::test
