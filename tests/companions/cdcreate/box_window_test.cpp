// The window of CD Create: what it shows, what it makes, by keyboard.

#include "companions/cdcreate/box_window.h"
#include "tests/accessibility/accessible_walk.h"
#include "tests/captions/captions.h"
#include "tests/companions/cdcreate/box_places.h"
#include "tests/support/settings_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QUrl>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 20'000;

class BoxWindows : public testing::TestWithParam<TextLanguage>
{
protected:
    BoxWindows()
        : m_home(qgetenv("HOME"))
    {
        qputenv("HOME", QFile::encodeName(room.path()));
        QDir(room.path()).mkpath(u"out"_s);
        room.write(u"a.avi"_s, QByteArray(200'000, 'x'));
        whole = room.write(u"whole.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
        poor = room.write(u"poor.vxl"_s,
                          "[main]\nfiles=2\n[file1]\npath=a.avi\n[file2]\npath=C:\\gone.avi\n");
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    ~BoxWindows() override { qputenv("HOME", m_home); }

    [[nodiscard]] static bool comes(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, kPatienceMs);
    }
    void takeTo(const QString& name)
    {
        window.TargetEdit->selectAll();
        QTest::keyClicks(window.TargetEdit, room.file(u"out/"_s + name));
    }
    [[nodiscard]] QStringList made() const { return namesIn(room.file(u"out"_s)); }
    [[nodiscard]] bool isMade() const { return window.OpenButton->isVisible(); }

    void expectReadable()
    {
        QTest::qWait(0);
        EXPECT_EQ(captionsThatDoNotFit(window), QStringList())
            << qPrintable(captionsThatDoNotFit(window).join(u'\n'));
        EXPECT_EQ(accessKeyComplaints(window), QStringList())
            << qPrintable(accessKeyComplaints(window).join(u'\n'));
        const AccessibleWalk walk = walkOver(window);
        EXPECT_EQ(walk.complaints, QStringList()) << qPrintable(walk.complaints.join(u'\n'));
        EXPECT_GE(walk.met, 8);
    }

    SettingsFolder room{QByteArray()};
    QString whole;
    QString poor;
    BoxWindow window{GetParam(), {}};

private:
    QByteArray m_home;
};

INSTANTIATE_TEST_SUITE_P(Languages, BoxWindows,
                         testing::Values(TextLanguage::English, TextLanguage::Russian),
                         [](const auto& language) {
                             return language.param == TextLanguage::English ? "English" : "Russian";
                         });

} // namespace

TEST_P(BoxWindows, CanBeReadAndUsedByAllInEveryState)
{
    expectReadable();
    window.addLessons({poor});
    ASSERT_TRUE(comes([&] { return window.MissingList->isVisible(); }));
    expectReadable();
    window.SkipBox->click();
    takeTo(u"box"_s);
    window.StartButton->click();
    ASSERT_TRUE(comes([&] { return isMade(); }));
    expectReadable();
    takeTo(u"box"_s); // there is one now
    ASSERT_TRUE(comes([&] { return window.ReplaceBox->isVisible(); }));
    expectReadable();
    window.resize(window.minimumSizeHint());
    expectReadable();
}

TEST_P(BoxWindows, ReachesEveryButtonByAKeyOfItsOwn)
{
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        EXPECT_FALSE(QKeySequence::mnemonic(button->text()).isEmpty())
            << qPrintable(button->objectName());
    }
}

TEST_P(BoxWindows, SaysHowMuchItIsAndWhatIsMissing)
{
    EXPECT_FALSE(window.StartButton->isEnabled());
    window.addLessons({whole, poor, whole});
    EXPECT_EQ(window.lessons(), (QStringList{whole, poor}));
    ASSERT_TRUE(comes([&] { return window.MissingList->isVisible(); }));
    EXPECT_EQ(window.MissingList->count(), 1);
    EXPECT_TRUE(window.MissingList->item(0)->text().contains(u"C:\\gone.avi"));
    EXPECT_TRUE(window.SummaryLabel->text().contains(u"200"));
    EXPECT_FALSE(window.StartButton->isEnabled());
    window.SkipBox->click();
    EXPECT_TRUE(window.StartButton->isEnabled());
    window.LessonList->setCurrentRow(1);
    QTest::keyClick(window.LessonList, Qt::Key_Delete);
    ASSERT_TRUE(comes([&] { return window.MissingList->isHidden(); }));
    EXPECT_EQ(window.lessons(), QStringList(whole));
}

TEST_P(BoxWindows, MakesAFolderAnImageAndAnArchive)
{
    window.addLessons({whole});
    ASSERT_TRUE(comes([&] { return window.StartButton->isEnabled(); }));
    EXPECT_TRUE(window.TargetEdit->text().endsWith(u"/whole"));
    takeTo(u"box"_s);
    const std::pair<QRadioButton*, QString> forms[] = {{window.FolderOption, u"box"_s},
                                                       {window.ImageOption, u"box.iso"_s},
                                                       {window.ZipOption, u"box.zip"_s}};
    for (const auto& [option, name] : forms) {
        option->click();
        EXPECT_EQ(QFileInfo(window.TargetEdit->text()).fileName(), name);
        window.TargetEdit->setFocus();
        QTest::keyClick(window.TargetEdit, Qt::Key_Return);
        ASSERT_TRUE(comes([&] { return isMade(); })) << qPrintable(window.ResultLabel->text());
        EXPECT_TRUE(made().contains(name));
        EXPECT_TRUE(window.OpenButton->hasFocus());
    }
    EXPECT_EQ(made().size(), 3);
}

TEST_P(BoxWindows, AsksBeforeItReplacesABoxAndRefusesWhatIsNone)
{
    window.addLessons({whole});
    takeTo(u"box"_s);
    ASSERT_TRUE(comes([&] { return window.StartButton->isEnabled(); }));
    window.StartButton->click();
    ASSERT_TRUE(comes([&] { return isMade(); }));
    EXPECT_FALSE(window.StartButton->isEnabled());
    EXPECT_TRUE(window.ReplaceBox->isVisible());
    window.ReplaceBox->click();
    EXPECT_TRUE(window.StartButton->isEnabled());
    window.StartButton->click();
    ASSERT_TRUE(comes([&] { return isMade(); }));
    room.write(u"out/box/letter.odt"_s, "mine");
    takeTo(u"bo"_s);
    takeTo(u"box"_s);
    EXPECT_FALSE(window.StartButton->isEnabled());
    EXPECT_FALSE(window.ReplaceBox->isVisible());
    EXPECT_FALSE(window.ResultLabel->text().isEmpty());
}

TEST_P(BoxWindows, StopTakesBackWhatWasBegunAndTheWindowStays)
{
    QFile large(room.file(u"a.avi"_s));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(2'000'000'000));
    window.addLessons({whole});
    takeTo(u"box"_s);
    ASSERT_TRUE(comes([&] { return window.StartButton->isEnabled(); }));
    window.StartButton->click();
    EXPECT_TRUE(window.ProgressBar->isVisible());
    EXPECT_FALSE(window.AddButton->isEnabled());
    ASSERT_TRUE(comes([&] { return !made().isEmpty(); }));
    QTest::keyClick(&window, Qt::Key_Escape);
    ASSERT_TRUE(comes([&] { return window.ProgressBar->isHidden(); }));
    EXPECT_EQ(made(), QStringList());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.StartButton->isEnabled());
    EXPECT_FALSE(window.ResultLabel->text().isEmpty());
}

TEST_P(BoxWindows, ClosesWhileItWorksAndLeavesNothing)
{
    QFile large(room.file(u"a.avi"_s));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(2'000'000'000));
    window.addLessons({whole});
    takeTo(u"box"_s);
    ASSERT_TRUE(comes([&] { return window.StartButton->isEnabled(); }));
    window.StartButton->click();
    ASSERT_TRUE(comes([&] { return !made().isEmpty(); }));
    window.close();
    ASSERT_TRUE(comes([&] { return window.isHidden(); }));
    EXPECT_EQ(made(), QStringList());
}

TEST_P(BoxWindows, TakesWhatIsDroppedAndNamesWhatIsNoLesson)
{
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(whole), QUrl::fromLocalFile(room.file(u"a.avi"_s)),
                     QUrl(u"https://example.org/x.vxl"_s)});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_EQ(window.lessons(), QStringList(whole));
    EXPECT_TRUE(window.ResultLabel->text().contains(u"a.avi"));
}

TEST_P(BoxWindows, BurnsADiscWhereThereIsADrive)
{
    EXPECT_TRUE(window.DiscOption->isHidden());
    const QString disc = room.write(u"disc"_s, {});
    window.offerDrive({u"stdio:"_s + disc, u"A drive"_s});
    expectReadable();
    window.addLessons({whole});
    ASSERT_TRUE(comes([&] { return window.StartButton->isEnabled(); }));
    window.DiscOption->click();
    EXPECT_FALSE(window.TargetEdit->isEnabled());
    window.StartButton->click();
    ASSERT_TRUE(comes([&] { return !window.ResultLabel->text().isEmpty(); }));
    EXPECT_GT(QFileInfo(disc).size(), 200'000) << qPrintable(window.ResultLabel->text());
    EXPECT_TRUE(window.OpenButton->isHidden());
}

TEST_P(BoxWindows, OffersThePageForBrowsersWhereThereIsOne)
{
    EXPECT_TRUE(window.BrowserBox->isHidden());
    bool isAsked = false;
    const auto makePage = [&](BoxPlan& plan, BoxWork&) {
        isAsked = true;
        return std::vector<BoxExtra>{{plan.names.take({}, u"index.html"_s), "<html>", {}, {}}};
    };
    BoxWindow other(GetParam(), makePage);
    other.show();
    EXPECT_TRUE(other.BrowserBox->isVisible());
    other.addLessons({whole});
    other.TargetEdit->clear();
    QTest::keyClicks(other.TargetEdit, room.file(u"out/box"_s));
    ASSERT_TRUE(comes([&] { return other.StartButton->isEnabled(); }));
    other.BrowserBox->click();
    other.StartButton->click();
    ASSERT_TRUE(comes([&] { return other.OpenButton->isVisible(); }));
    EXPECT_TRUE(isAsked);
    EXPECT_TRUE(QFile::exists(room.file(u"out/box/index.html"_s)));
}

} // namespace orvanta::test
