// Drafts of what was edited: what becomes of those that were offered.
#include "model/editing/drafts.h"
#include "tests/window/window_fixture.h"
#include "window/edit_notice.h"

#include <QPushButton>

namespace orvanta::test {

class EditingDrafts : public Form2Test
{
protected:
    /// Shows a packet that has a draft; the window offers that.
    void showWithDraft()
    {
        addClips(u"first"_s, {u"one"_s, u"two"_s});
        module.playlist.Document = home.file(u"lesson.vxl"_s);
        QString& text = module.playlist.Playlist.front().Clips.back().Text;
        text = u"two again"_s;
        ASSERT_TRUE(drafts().keep(module.playlist, {}));
        text = u"two"_s;
        showList();
        ASSERT_NE(window->Notice->text(), QString());
    }

    [[nodiscard]] Drafts drafts() const { return Drafts(module.ApplicationFolder); }
    [[nodiscard]] bool hasDraft() const
    {
        return drafts().of(module.playlist.Document).has_value();
    }
};

TEST_F(EditingDrafts, OneThatWasNotAnsweredIsThereAfterTheProgramHasEnded)
{
    showWithDraft();
    engine->closeProgram();
    EXPECT_TRUE(othersUnloaded);
    EXPECT_TRUE(hasDraft());
}

TEST_F(EditingDrafts, OneThatSaysWhatTheDocumentSaysGoesUnasked)
{
    addClips(u"first"_s, {u"one"_s, u"two"_s});
    module.playlist.Document = home.file(u"lesson.vxl"_s);
    ASSERT_TRUE(drafts().keep(module.playlist, {}));
    showList();
    EXPECT_EQ(window->Notice->text(), QString());
    EXPECT_FALSE(hasDraft());
}

TEST_F(EditingDrafts, OneThatIsLeftStaysWhenTheModeIsLookedAtWithoutAChange)
{
    showWithDraft();
    window->Notice->buttons().back()->click();
    EXPECT_EQ(window->Notice->text(), QString());
    window->EditButton->click();
    window->EditButton->click();
    EXPECT_TRUE(hasDraft());
}

TEST_F(EditingDrafts, HoldWhatIsBeingTypedWhenTheProgramEnds)
{
    addClips(u"first"_s, {u"one"_s, u"two"_s});
    module.playlist.Document = home.file(u"lesson.vxl"_s);
    showList();
    window->EditButton->click();
    window->List1->setCursorLine(2);
    QTest::keyClick(window->List1, Qt::Key_F2);
    QTest::keyClicks(window->List1->findChild<QLineEdit*>(u"LineBox"_s), u"typed"_s);
    engine->closeProgram();
    const auto packets = drafts().packets(module.playlist.Document, module.playlist);
    ASSERT_TRUE(packets && packets->size() == 1);
    EXPECT_EQ(packets->front().clip(1).Text, u"typed");
}

TEST_F(EditingDrafts, OneThatIsTakenAndUndoneGoes)
{
    showWithDraft();
    window->Notice->buttons().front()->click();
    EXPECT_EQ(module.playlist.packet(1).clip(2).Text, u"two again");
    QTest::keyClick(window->List1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(module.playlist.packet(1).clip(2).Text, u"two");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hasDraft(); }));
}

} // namespace orvanta::test
