// Editing what is open in the main window: saving, drafts, what is said about changes.
#include "tests/window/editing_fixture.h"
#include "window/earlier_dialog.h"

#include <QListWidget>
#include <QLocale>
#include <QPlainTextEdit>

namespace orvanta::test {

using EditedDocuments = EditingInTheWindow;

TEST_F(EditedDocuments, SavesToWhereItCameFromAndKeepsTheEarlierVersion)
{
    setVersionsFolder(home.file(u"versions"_s));
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    const QByteArray before = home.bytes(u"lesson.vxl"_s);
    press(Qt::Key_F2);
    type(u"start"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
    EXPECT_FALSE(window->Editing->SaveButton->isEnabled());
    EXPECT_TRUE(drafts().isEmpty());
    const auto versions = earlierVersions(home.file(u"lesson.vxl"_s));
    ASSERT_EQ(versions.size(), 1U);
    QFile version(versions[0].file);
    ASSERT_TRUE(version.open(QIODevice::ReadOnly));
    EXPECT_EQ(version.readAll(), before);
}

TEST_F(EditedDocuments, SavesElsewhereThroughThePicker)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_Delete);
    pickers.saveAnswer = home.file(u"other.vxl"_s);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(pickers.calls.last(), u"save *.vxl");
    EXPECT_EQ(pickers.proposals.last(), u"lesson");
    EXPECT_EQ(kept(u"main", u"brakes", u"other.vxl"_s), u"1");
    EXPECT_EQ(kept(u"main", u"brakes"), u"2");
    EXPECT_EQ(module.playlist.Document, home.file(u"other.vxl"_s));
}

TEST_F(EditedDocuments, SaysThatItCouldNotSaveAndKeepsTheDraft)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_Delete);
    pickers.saveAnswer = home.file(u"nowhere/at/all.vxl"_s);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(window->Notice->text().contains(u"all.vxl"_s));
    EXPECT_EQ(drafts().size(), 1);
    EXPECT_TRUE(mode().editing().isChanged());
}

TEST_F(EditedDocuments, KeepsADraftSoonAfterAChange)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return drafts().size() == 1; }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return drafts().isEmpty(); }));
}

TEST_F(EditedDocuments, SaysThatNoDraftIsKeptWhereNoneCanBe)
{
    home.write(u"drafts"_s, "a file in the folder's place");
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return window->Notice->text() == u"No draft of lesson.vxl could be kept; save it soon";
    }));
    pickers.saveAnswer = home.file(u"nowhere/at/all.vxl"_s);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window->Notice->text(), u"all.vxl could not be saved, and no draft could be kept");
    press(Qt::Key_F4);
    EXPECT_EQ(window->Notice->text(), u"lesson.vxl is not saved yet, and no draft could be kept");
    answer(0);
    EXPECT_EQ(kept(u"main", u"brakes"), u"1");
    EXPECT_EQ(window->Notice->text(), QString());
}

TEST_F(EditedDocuments, SaysOnLeavingThatChangesAreNotSaved)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    press(Qt::Key_F4);
    EXPECT_TRUE(window->Notice->text().startsWith(u"lesson.vxl"_s));
    EXPECT_EQ(answers(), (QStringList{u"Save"_s, u"Discard"_s}));
    EXPECT_EQ(drafts().size(), 1);
    answer(0);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
    EXPECT_TRUE(drafts().isEmpty());
    EXPECT_EQ(window->Notice->text(), QString());
}

TEST_F(EditedDocuments, DiscardsChangesInAStepThatCanBeUndone)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    press(Qt::Key_Delete);
    press(Qt::Key_F4);
    answer(1);
    EXPECT_EQ(texts(), (QStringList{u"line 1"_s, u"line 2"_s}));
    EXPECT_TRUE(drafts().isEmpty());
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    press(Qt::Key_F4);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(texts(), (QStringList{u"line 2"_s}));
}

TEST_F(EditedDocuments, OffersTheDraftWhenItsDocumentIsOpenedAgain)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    press(Qt::Key_F4);
    window.reset();
    show();
    EXPECT_EQ(answers(), (QStringList{})); // something is open
    click(window->Image14);
    EXPECT_TRUE(window->Notice->text().startsWith(u"Changes from "_s));
    EXPECT_EQ(texts()[0], u"line 1");
    answer(0);
    EXPECT_EQ(texts()[0], u"start");
    EXPECT_TRUE(mode().isOn());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
    EXPECT_TRUE(drafts().isEmpty());
}

TEST_F(EditedDocuments, OffersADraftAtTheStartAndOpensItsDocument)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    press(Qt::Key_F4);
    window.reset();
    module.playlist = {};
    show(2);
    EXPECT_TRUE(window->Notice->text().startsWith(u"lesson.vxl: изменения от "_s));
    EXPECT_EQ(answers(), (QStringList{u"Взять их"_s, u"Оставить"_s}));
    answer(0);
    ASSERT_EQ(module.playlist.PlaylistCount, 1);
    EXPECT_EQ(texts()[0], u"start");
    EXPECT_EQ(kept(u"brake1", u"text"), u"line 1");
}

TEST_F(EditedDocuments, SavesWhatWasLeftByOpeningSomethingElse)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    pickers.answer = {writePacket(u"clips.vxl"_s, {u"one"_s})};
    click(window->Image14);
    EXPECT_EQ(texts(), (QStringList{u"one"_s}));
    ASSERT_EQ(answers(), (QStringList{u"Save"_s, u"Discard"_s}));
    answer(0);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
    EXPECT_TRUE(drafts().isEmpty());
    EXPECT_EQ(module.playlist.Document, home.file(u"clips.vxl"_s));
}

TEST_F(EditedDocuments, ListsEarlierVersionsAsPeopleReadThem)
{
    setVersionsFolder(home.file(u"versions"_s));
    openBrakes({u"000004.25"_s, u"soon"_s});
    press(Qt::Key_Delete);
    press(Qt::Key_S, Qt::ControlModifier);
    const QString document = home.file(u"lesson.vxl"_s);
    std::vector<EarlierVersion> versions = earlierVersions(document);
    ASSERT_EQ(versions.size(), 1U);
    versions[0].size = 1536;
    const EarlierDialog dialog({{document, versions[0]}}, TextLanguage::Russian, nullptr);
    EXPECT_TRUE(dialog.VersionList->item(0)->text().endsWith(u" КБ"_s));
    EXPECT_TRUE(dialog.VersionList->item(0)->text().contains(QLocale().toString(1.5, 'f', 1)));
    EXPECT_EQ(dialog.ContentBox->toPlainText(), u"0:04.25  line 1\nsoon  line 2\n");
}

} // namespace orvanta::test
