#include "editors/editor_services.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "editors/time_slider.h"
#include "tests/editors/editor_room.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <functional>

namespace orvanta::test {

namespace {

class ShowEditor : public EditorRoom
{
protected:
    template <typename Form> void inTheEditor(const std::function<void(Form&)>& work)
    {
        m_next.act(work);
    }
    static void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    void runPreview(Form5& form)
    {
        form.Option2->click();
        clickRow(form.File2, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return preview && preview->isReady(); }));
        QTest::keyClick(form.Slider1, Qt::Key_PageUp);
    }
    [[nodiscard]] QString temporary(const QString& name) const
    {
        return module.ApplicationFolder + u'/' + name;
    }

    EditorServices given = services();

private:
    NextModalWindow m_next;
};

} // namespace

TEST_F(ShowEditor, CreateGivesTheTemporaryPacketToOpen)
{
    put(u"a.avi"_s);
    inTheEditor<Form5>([](Form5& form) {
        clickRow(form.File1, 0);
        press(form.Command1);
    });
    EXPECT_EQ(showPacketEditor(given, nullptr).fileToOpen, temporary(u"temp.vxl"_s));
}

TEST_F(ShowEditor, CreateGivesTheTemporaryGroupToOpen)
{
    put(u"a.vxl"_s);
    inTheEditor<Form6>([](Form6& form) {
        clickRow(form.File1, 0);
        press(form.Command1);
    });
    EXPECT_EQ(showGroupEditor(given, nullptr).fileToOpen, temporary(u"temp.vxg"_s));
}

TEST_F(ShowEditor, ClosingWithoutCreateGivesNothingAndDeletesNothing)
{
    QFile stale(temporary(u"temp.vxl"_s));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    inTheEditor<Form5>([](Form5& form) { press(form.Command2); });
    EXPECT_EQ(showPacketEditor(given, nullptr).fileToOpen, QString());
    EXPECT_TRUE(stale.exists());
}

TEST_F(ShowEditor, EditorDoneStaysSetForTheRestOfTheRun)
{
    module.EditorDone = true;
    inTheEditor<Form5>([](Form5& form) { press(form.Command2); });
    EXPECT_EQ(showPacketEditor(given, nullptr).fileToOpen, QString());
    EXPECT_TRUE(module.EditorDone);
}

// EditorDone is not taken back: what an earlier editor left behind counts as this one's.
TEST_F(ShowEditor, AFileThatIsLeftOverIsOpenedOnceSomethingHasBeenCreated)
{
    module.EditorDone = true;
    QFile leftOver(temporary(u"temp.vxl"_s));
    ASSERT_TRUE(leftOver.open(QIODevice::WriteOnly));
    inTheEditor<Form5>([](Form5& form) { press(form.Command2); });
    EXPECT_EQ(showPacketEditor(given, nullptr).fileToOpen, leftOver.fileName());
}

TEST_F(ShowEditor, CreateWithAnEmptyListGivesNothing)
{
    inTheEditor<Form5>([](Form5& form) { press(form.Command1); });
    EXPECT_EQ(showPacketEditor(given, nullptr).fileToOpen, QString());
    inTheEditor<Form6>([](Form6& form) { press(form.Command1); });
    EXPECT_EQ(showGroupEditor(given, nullptr).fileToOpen, QString());
}

TEST_F(ShowEditor, APlayerThatRanIsPausedForThePreviewAndGoesOnAfterwards)
{
    put(u"a.avi"_s);
    playerRuns = true;
    inTheEditor<Form5>([this](Form5& form) {
        EXPECT_TRUE(playerRuns);
        runPreview(form);
        EXPECT_FALSE(playerRuns);
    });
    showPacketEditor(given, nullptr);
    EXPECT_TRUE(playerRuns);
}

TEST_F(ShowEditor, APlayerThatDidNotRunStaysAsItIs)
{
    put(u"a.avi"_s);
    inTheEditor<Form5>([this](Form5& form) { runPreview(form); });
    showPacketEditor(given, nullptr);
    EXPECT_FALSE(playerRuns);
}

TEST_F(ShowEditor, APlayerIsNotResumedWhenSomethingNewIsToBeOpened)
{
    put(u"a.avi"_s);
    playerRuns = true;
    inTheEditor<Form5>([this](Form5& form) {
        runPreview(form);
        press(form.Command15);
        press(form.Command12);
    });
    EXPECT_NE(showPacketEditor(given, nullptr).fileToOpen, QString());
    EXPECT_FALSE(playerRuns);
}

TEST_F(ShowEditor, SizesAreRememberedForTheRun)
{
    inTheEditor<Form5>([](Form5& form) { form.resize(1003, 702); });
    showPacketEditor(given, nullptr);
    inTheEditor<Form5>([](Form5& form) { EXPECT_EQ(form.size(), QSize(1003, 702)); });
    showPacketEditor(given, nullptr);
}

} // namespace orvanta::test
