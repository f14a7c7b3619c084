// The search in the playlist.

#include "tests/window/window_fixture.h"

#include <QAccessible>

namespace orvanta::test {

class FindButton : public Form2Test
{
protected:
    void SetUp() override
    {
        // Rows: 0 root, 1 header, 2 Red apple, 3 Green pear, 4 Green APPLE, 5 Груша
        addClips(u"fruit"_s, {u"Red apple"_s, u"Green pear"_s, u"Green APPLE"_s, u"Груша"_s});
        showList();
    }

    int find(const QString& text)
    {
        window->Text1->setText(text);
        click(window->Image2);
        return window->List1->cursorLine();
    }
};

TEST_F(FindButton, GoesFromRowToRow)
{
    struct Row
    {
        const char* rule;
        int clicked; // 0: no row
        std::vector<std::pair<QString, int>> searches;
    };
    const Row rows[] = {
        {"an empty text does nothing", 3, {{{}, 3}}},
        {"case does not count", 0, {{u"aPPle"_s, 2}, {u"груШа"_s, 5}}},
        {"a repeated search goes on after the last match and does not wrap",
         0,
         {{u"apple"_s, 2}, {u"apple"_s, 4}, {u"apple"_s, 4}, {u"apple"_s, 4}}},
        {"a text that is nowhere changes nothing", 4, {{u"banana"_s, 4}}},
        {"the first row is never looked at", 0, {{u"orvanta"_s, -1}}},
        // What follows them is searched, also where it still belongs to a clip's prefix.
        {"the first four characters are passed over", 0, {{u"-- "_s, -1}, {u"- red"_s, 2}}},
    };
    for (const Row& row : rows) {
        showList();
        if (row.clicked != 0) {
            clickRow(row.clicked);
        }
        for (const auto& [text, found] : row.searches) {
            EXPECT_EQ(find(text), found) << row.rule;
        }
    }
}

TEST_F(FindButton, CtrlReturnPlaysWhatReturnFoundAndTheBoxKeepsTheKeyboard)
{
    window->Text1->setFocus();
    window->Text1->setText(u"pear"_s);
    QTest::keyClick(window->Text1, Qt::Key_Return);
    EXPECT_EQ(window->List1->cursorLine(), 3);
    EXPECT_TRUE(window->Text1->hasFocus());
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    QTest::keyClick(window->Text1, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == MediaControl::Running; }));
    EXPECT_TRUE(window->Text1->hasFocus());
    EXPECT_EQ(window->Text1->text(), u"pear"_s);
}

TEST_F(FindButton, CtrlReturnOfTheNumberPadPlaysTheFoundLineThatWasUncheckedToo)
{
    find(u"apple"_s);
    QTest::mouseClick(window->List1->viewport(), Qt::LeftButton, {}, boxOfRow(2));
    ASSERT_FALSE(window->isLineChecked(2));
    QTest::keyClick(window->Text1, Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 1);
    EXPECT_TRUE(window->isLineChecked(2));
}

TEST_F(FindButton, CtrlReturnFindsANewTextFirstAndPlaysNothingWhereThereIsNone)
{
    find(u"pear"_s);
    window->Text1->setText(u"banana"_s);
    QTest::keyClick(window->Text1, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 0);
    EXPECT_EQ(window->Text1->property("missed").toBool(), true);
    window->Text1->setText(u"груша"_s);
    QTest::keyClick(window->Text1, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 4);
}

TEST_F(FindButton, AFailedRepetitionKeepsFailingUntilTheTextChanges)
{
    find(u"pear"_s);
    ASSERT_EQ(find(u"pear"_s), 3);
    clickRow(2);
    EXPECT_EQ(find(u"pear"_s), 2);
    EXPECT_EQ(find(u"PEAR"_s), 3);
}

TEST_F(FindButton, OnlyMovesTheCursor)
{
    clickListAt(boxOfRow(3));
    find(u"pear"_s);
    EXPECT_FALSE(window->isLineChecked(3));
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(FindButton, ReturnInTheFindBoxFinds)
{
    window->Text1->setText(u"pear"_s);
    QTest::keyClick(window->Text1, Qt::Key_Return);
    EXPECT_EQ(window->List1->cursorLine(), 3);
}

TEST_F(FindButton, F3FindsAgainFromTheListAndFromTheBox)
{
    ASSERT_EQ(find(u"apple"_s), 2);
    QTest::keyClick(window->List1, Qt::Key_F3);
    EXPECT_EQ(window->List1->cursorLine(), 4);
    window->Text1->setText(u"e"_s);
    QTest::keyClick(window->Text1, Qt::Key_F3);
    EXPECT_EQ(window->List1->cursorLine(), 2);
    QTest::keyClick(window->Text1, Qt::Key_F3);
    EXPECT_EQ(window->List1->cursorLine(), 3);
}

TEST_F(FindButton, ASearchWithoutAMatchTintsTheBoxAndSaysSoForAMoment)
{
    const auto spoken = [&] {
        return QAccessible::queryAccessibleInterface(window->Text1)->text(QAccessible::Description);
    };
    const auto colour = [&] {
        const QImage box = window->Text1->grab().toImage();
        return box.pixelColor(box.width() - 12, box.height() / 2);
    };
    find(u"pear"_s);
    const QColor before = colour();
    const QString tip = spoken();
    find(u"banana"_s);
    EXPECT_EQ(spoken(), u"Not found"_s);
    EXPECT_NE(colour(), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return spoken() == tip; }, 20000));
    EXPECT_EQ(colour(), before);
    find(u"banana"_s);
    find(u"pear"_s);
    EXPECT_EQ(spoken(), tip);
    EXPECT_EQ(colour(), before);
}

TEST_F(FindButton, BringsARowIntoSight)
{
    QStringList texts;
    for (int i = 0; i < 200; ++i) {
        texts.append(u"line %1"_s.arg(i));
    }
    addClips(u"more"_s, texts + QStringList{u"needle"_s});
    window->RebuildTree();
    const int row = find(u"needle"_s);
    ASSERT_GT(row, 200);
    const QRect line = window->List1->visualRect(window->List1->currentIndex());
    EXPECT_TRUE(window->List1->viewport()->rect().contains(line));
}

} // namespace orvanta::test
