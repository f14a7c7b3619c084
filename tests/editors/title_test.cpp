// The title of both editors: the document's name, and a sign when it has changed.

#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/brake_mode.h"

#include <QAccessible>

namespace orvanta::test {

template <typename Form> class TitleOf : public EditorOnScreen<Form>
{
protected:
    static constexpr bool kIsGroup = std::is_same_v<Form, Form6>;

    void load(const QString& name)
    {
        this->pickers.answer = {this->put(name, "[main]\nfiles=1\n[file1]\npath=/x\ntext=A\n")};
        QTest::mouseClick(this->editor->Command3, Qt::LeftButton);
    }
    void save(const QString& name)
    {
        this->pickers.saveAnswer = this->room(name);
        QTest::mouseClick(this->editor->Command4, Qt::LeftButton);
    }
    void expectTitle(const QString& document, bool isChanged) const
    {
        const QString caption = kIsGroup ? u"Create group"_s : u"Create packet"_s;
        EXPECT_EQ(this->editor->windowTitle(),
                  document.isEmpty() ? caption : caption + u" — "_s + document + u"[*]"_s);
        EXPECT_EQ(this->editor->isWindowModified(), isChanged);
    }
};

using TitledEditors = testing::Types<Form5, Form6>;
TYPED_TEST_SUITE(TitleOf, TitledEditors);

TYPED_TEST(TitleOf, HasNoDocumentBeforeOneIsLoadedOrSaved)
{
    this->openWith({u"a{}1"_s});
    this->expectTitle({}, false);
    this->save(u"lesson 3.doc"_s);
    this->expectTitle(u"lesson 3.doc"_s, false);
}

TYPED_TEST(TitleOf, SaysWhatIsLoadedAndWhetherItHasChanged)
{
    this->open();
    this->load(u"one.doc"_s);
    this->expectTitle(u"one.doc"_s, false);
    this->editor->List1->change([](EntryList& list) { list.entries.append(u"b{}2"_s); });
    this->expectTitle(u"one.doc"_s, true);
    this->save(u"two.doc"_s);
    this->expectTitle(u"two.doc"_s, false);
}

TYPED_TEST(TitleOf, ASelectionIsNoChangeAndUndoTakesTheSignOff)
{
    this->open();
    this->load(u"one.doc"_s);
    clickRow(this->editor->List1, 0);
    this->expectTitle(u"one.doc"_s, false);
    QTest::mouseClick(this->editor->Command5, Qt::LeftButton);
    this->expectTitle(u"one.doc"_s, true);
    this->editor->List1->undo();
    this->expectTitle(u"one.doc"_s, false);
    this->editor->List1->undo();
    this->expectTitle({}, false);
    this->editor->List1->redo();
    this->expectTitle(u"one.doc"_s, false);
}

TYPED_TEST(TitleOf, ShowsANameAsItIs)
{
    this->open();
    this->load(u"a[*]b\nc.doc"_s);
    this->expectTitle(u"a[*][*]b c.doc"_s, false);
}

TYPED_TEST(TitleOf, ASaveThatFailsNamesNoOtherFile)
{
    this->open();
    this->load(u"one.doc"_s);
    this->editor->List1->change([](EntryList& list) { removeAll(list); });
    this->save(u"no folder/two.doc"_s);
    this->expectTitle(u"one.doc"_s, true);
}

TYPED_TEST(TitleOf, AssistiveTechnologyHearsTheWindowsNameAndItsDocument)
{
    this->open();
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(this->editor.get());
    ASSERT_NE(window, nullptr);
    const QString name = window->text(QAccessible::Name);
    EXPECT_EQ(window->text(QAccessible::Description), QString());
    this->load(u"one.doc"_s);
    EXPECT_EQ(window->text(QAccessible::Name), name);
    EXPECT_EQ(window->text(QAccessible::Description), u"one.doc"_s);
    this->editor->List1->change([](EntryList& list) { removeAll(list); });
    EXPECT_EQ(window->text(QAccessible::Description), u"one.doc*"_s);
}

TEST_F(BrakeMode, TheTitleIsThatOfTheModeWhichIsShown)
{
    openClip();
    editor->Option1->click();
    load(editor->Command3, "[main]\nfiles=1\n[file1]\npath=/x\ntext=A\n");
    EXPECT_EQ(editor->windowTitle(), u"Create packet — in[*]"_s);
    editor->Option2->click();
    EXPECT_EQ(editor->windowTitle(), u"Create packet"_s);
    EXPECT_EQ(savedBy(editor->Command16).left(6), QByteArray("[main]"));
    EXPECT_EQ(editor->windowTitle(), u"Create packet — out[*]"_s);
    EXPECT_FALSE(editor->isWindowModified());
    typeOver(editor->Text3, u"another text"_s);
    EXPECT_TRUE(editor->isWindowModified()) << "it is written beside the clip";
    editor->Option1->click();
    EXPECT_EQ(editor->windowTitle(), u"Create packet — in[*]"_s);
    EXPECT_FALSE(editor->isWindowModified());
}

} // namespace orvanta::test
