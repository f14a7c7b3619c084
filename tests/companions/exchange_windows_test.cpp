// The windows of Import and Export: what they show, and what their keys do.

#include "companions/exchange/lesson_documents.h"
#include "companions/exchange_windows/export_window.h"
#include "companions/exchange_windows/import_window.h"
#include "tests/captions/captions.h"
#include "tests/companions/program_room.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 30000;

void drop(QWidget& window, const QStringList& files)
{
    QMimeData data;
    QList<QUrl> addresses;
    for (const QString& file : files) {
        addresses.append(QUrl::fromLocalFile(file));
    }
    data.setUrls(addresses);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

class ImportWindowTest : public ProgramRoom
{
protected:
    void show(TextLanguage language = TextLanguage::English)
    {
        window = std::make_unique<ImportWindow>(
            language,
            ImportServices{
                .pickFiles = [this](QWidget&, const QString&, const QString&) { return picked; },
                .pickClip = [this](QWidget&, const QString&,
                                   const QString&) { return picked.value(0); },
                .pickTarget =
                    [this](QWidget&, const QString&, const QString& proposed) {
                        proposedTarget = proposed;
                        return target;
                    },
                .open =
                    [this](const QString& lesson) {
                        opened = lesson;
                        return hasPlayer;
                    },
            });
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    void read(const QStringList& files)
    {
        QSignalSpy ready(window.get(), &ImportWindow::ready);
        window->take(files);
        ASSERT_TRUE(ready.wait(kPatienceMs));
    }
    [[nodiscard]] QStringList rows() const
    {
        QStringList rows;
        for (int i = 0; i < window->Preview->topLevelItemCount(); ++i) {
            const QTreeWidgetItem& packet = *window->Preview->topLevelItem(i);
            rows.append(packet.text(0));
            for (int line = 0; line < packet.childCount(); ++line) {
                const QTreeWidgetItem& item = *packet.child(line);
                rows.append(item.text(0) + u'|' + item.text(1) + u'|' + item.text(2));
            }
        }
        return rows;
    }

    QStringList picked;
    QString target;
    QString proposedTarget;
    QString opened;
    bool hasPlayer = true;
    std::unique_ptr<ImportWindow> window;
};

class ExportWindowTest : public ProgramRoom
{
protected:
    void SetUp() override
    {
        makeClip(u"clip.mp4"_s, 5);
        lesson = folder.write(u"lesson.vxl"_s,
                              "[main]\r\nfiles=1\r\nfile=clip.mp4\r\nbrakes=3\r\n[brake1]\r\n"
                              "time=0\r\ntext=A\r\n[brake2]\r\ntime=1.5\r\ntext=B\r\n[brake3]\r\n"
                              "time=3\r\ntext=End\r\n");
        other = folder.write(u"other.vxl"_s, "[main]\r\nfiles=1\r\n[file1]\r\npath=clip.mp4\r\n"
                                             "text=Whole\r\n");
    }
    void show(TextLanguage language = TextLanguage::English)
    {
        window = std::make_unique<ExportWindow>(
            language,
            ExportServices{
                .pickLesson = [](QWidget&, const QString&, const QString&) { return QString(); },
                .pickTarget = [this](QWidget&, const QString&, const QString&) { return target; },
                .recentLessons = {lesson, other},
            });
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    void writeAs(const QString& format)
    {
        window->FormatBox->setCurrentText(format);
        QSignalSpy finished(window.get(), &ExportWindow::finished);
        QTest::mouseClick(window->ExportNow, Qt::LeftButton);
        ASSERT_TRUE(finished.wait(kPatienceMs));
    }

    QString lesson;
    QString other;
    QString target;
    std::unique_ptr<ExportWindow> window;
};

} // namespace

TEST_F(ImportWindowTest, ShowsWhatComesInAndHandsItToThePlayer)
{
    const QString list = folder.write(u"list.m3u"_s, "#EXTINF:1,First\na.mp3\nhttp://h/b\nb.mp3\n");
    show();
    EXPECT_FALSE(window->SaveAndOpen->isEnabled());
    picked = {list};
    QSignalSpy ready(window.get(), &ImportWindow::ready);
    QTest::mouseClick(window->ChooseSource, Qt::LeftButton);
    ASSERT_TRUE(ready.wait(kPatienceMs));
    EXPECT_EQ(rows(), (QStringList{u"list"_s, u"|First|a.mp3"_s, u"|b|b.mp3"_s}));
    EXPECT_EQ(window->Summary->text(), u"Packets: 1, lines: 2");
    EXPECT_TRUE(window->Remarks->isVisible());
    EXPECT_TRUE(window->Remarks->toPlainText().contains(u"line 3: an address"));
    target = folder.file(u"out.vxl"_s);
    QApplication::setActiveWindow(window.get());
    QTest::keyClick(window.get(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return opened == target; }, kPatienceMs));
    EXPECT_EQ(proposedTarget, folder.file(u"list.vxl"_s));
    EXPECT_EQ(readLessonDocument(target).lesson.packets.at(0).clips.size(), 2U);
}

TEST_F(ImportWindowTest, AsksForTheClipThatMarksAreInAndTakesItDropped)
{
    const QString labels = folder.write(u"marks.txt"_s, "0.0\t0.0\tA\n1.0\t1.0\tB\n");
    const QString clip = makeClip(u"film.mp4"_s, 2);
    show();
    read({labels});
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(window->SaveAndOpen->isEnabled());
    EXPECT_TRUE(window->ChooseClip->hasFocus());
    QSignalSpy ready(window.get(), &ImportWindow::ready);
    drop(*window, {clip});
    ASSERT_TRUE(ready.wait(kPatienceMs));
    EXPECT_EQ(rows(), (QStringList{u"marks"_s, u"0:00.00|A|film.mp4"_s, u"0:01.00|B|film.mp4"_s,
                                   u"0:02.00|End|film.mp4"_s}));
    EXPECT_TRUE(window->SaveAndOpen->hasFocus());
    EXPECT_EQ(window->ClipText->text(), u"film.mp4");
}

TEST_F(ImportWindowTest, KeepsTheLessonWhenItCannotBeWrittenOrOpened)
{
    const QString list = folder.write(u"list.m3u"_s, "a.mp3\n");
    show();
    read({list});
    target = folder.file(u"nowhere/out.vxl"_s);
    QTest::mouseClick(window->SaveAndOpen, Qt::LeftButton);
    EXPECT_TRUE(window->Remarks->toPlainText().contains(u"cannot be written"));
    EXPECT_EQ(opened, QString());
    hasPlayer = false;
    target = folder.file(u"out.vxl"_s);
    QTest::mouseClick(window->SaveAndOpen, Qt::LeftButton);
    EXPECT_EQ(window->Remarks->toPlainText(), u"the player is not there");
    EXPECT_TRUE(window->SaveAndOpen->isEnabled());
}

TEST_F(ImportWindowTest, ComesUpWhenItIsMinimisedAtItsStartAndStaysDownLater)
{
    qputenv("ORVANTA_PROGRAM", "/usr/bin/orvanta");
    show();
    window->setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isMinimized(); }, kPatienceMs));
    window->setWindowState(Qt::WindowMinimized);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->isMinimized());
    qunsetenv("ORVANTA_PROGRAM");
}

TEST_F(ImportWindowTest, ClosesByEscape)
{
    show();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ExportWindowTest, SaysWhatToDoWhereNoLessonIsKnown)
{
    const ExportWindow empty(TextLanguage::English, {});
    EXPECT_EQ(empty.Summary->text(), u"Choose a lesson, or drop one here");
    EXPECT_FALSE(empty.ExportNow->isEnabled());
    show();
    EXPECT_EQ(window->Summary->text(), QString());
}

TEST_F(ExportWindowTest, ProposesTheLessonThatWasOnLastAndAFreeName)
{
    folder.write(u"lesson.m3u8"_s, "");
    show();
    EXPECT_EQ(window->LessonBox->currentData().toString(), lesson);
    EXPECT_EQ(window->TargetText->text(), folder.file(u"lesson (2).m3u8"_s));
    writeAs(u"Chapters (WebVTT)"_s);
    EXPECT_EQ(window->Summary->text(), u"Written: lesson.vtt");
    EXPECT_TRUE(folder.bytes(u"lesson.vtt"_s).startsWith("WEBVTT"));
}

TEST_F(ExportWindowTest, CopiesAClipWithItsChapters)
{
    show();
    window->FormatBox->setCurrentText(u"Copy of the clip with chapters"_s);
    EXPECT_EQ(window->TargetText->text(), folder.file(u"lesson.mp4"_s));
    writeAs(u"Copy of the clip with chapters"_s);
    EXPECT_EQ(window->Summary->text(), u"Written: lesson.mp4");
    EXPECT_TRUE(QFileInfo::exists(folder.file(u"lesson.mp4"_s)));
    EXPECT_FALSE(window->isWriting());
}

TEST_F(ExportWindowTest, SaysWhatAPacketOfClipsHasNot)
{
    show();
    drop(*window, {other});
    writeAs(u"Chapters (WebVTT)"_s);
    EXPECT_EQ(window->Summary->text(), u"Nothing was written");
    EXPECT_TRUE(window->Remarks->toPlainText().contains(u"a packet without marks"));
    EXPECT_FALSE(QFileInfo::exists(folder.file(u"other.vtt"_s)));
}

TEST_F(ExportWindowTest, EndsCopyingWhenItIsCancelledAndLeavesNothing)
{
    // A program of this name that never ends.
    QDir().mkpath(folder.file(u"bin"_s));
    QFile endless(folder.file(u"bin/ffmpeg"_s));
    ASSERT_TRUE(endless.open(QIODevice::WriteOnly));
    endless.write("#!/bin/sh\nexec sleep 600\n");
    endless.close();
    endless.setPermissions(endless.permissions() | QFile::ExeOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.file(u"bin"_s).toUtf8() + ':' + path);
    show();
    window->FormatBox->setCurrentText(u"Copy of the clip with chapters"_s);
    QSignalSpy finished(window.get(), &ExportWindow::finished);
    QTest::mouseClick(window->ExportNow, Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([this] { return window->isWriting(); }, kPatienceMs));
    EXPECT_EQ(window->ExportNow->text(), u"&Cancel");
    QTest::mouseClick(window->ExportNow, Qt::LeftButton);
    ASSERT_TRUE(finished.wait(kPatienceMs));
    qputenv("PATH", path);
    EXPECT_TRUE(window->Remarks->toPlainText().contains(u"cancelled"));
    EXPECT_EQ(names(), (QStringList{u"clip.mp4"_s, u"lesson.vxl"_s, u"other.vxl"_s}));
    EXPECT_EQ(QDir(folder.path()).entryList({u".orvanta*"_s}, QDir::AllEntries | QDir::Hidden),
              QStringList());
}

/// Rows of the table of texts whose first word no control of the window bears.
static QStringList strayTexts(const QWidget& window)
{
    QStringList stray;
    for (const InterfaceText& row : interfaceTexts()) {
        const QString control = row.control.toString().section(u'.', 0, 0);
        if (row.window == window.objectName() && control != window.objectName() &&
            control != u"format" && window.findChild<QWidget*>(control) == nullptr) {
            stray.append(row.control.toString());
        }
    }
    return stray;
}

TEST(TextsOfAddIns, BelongToControlsThatThereAre)
{
    const ImportWindow import(TextLanguage::English, {});
    const ExportWindow exporting(TextLanguage::English, {});
    EXPECT_EQ(strayTexts(import), QStringList());
    EXPECT_EQ(strayTexts(exporting), QStringList());
}

/// Of text that is drawn over a ground, 1 to 21.
static double contrast(const QColor& text, const QColor& ground)
{
    const auto light = [](double red, double green, double blue) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(red) + 0.7152 * part(green) + 0.0722 * part(blue) + 0.05;
    };
    const auto seen = [&](double one, double other) {
        return one * text.alphaF() + other * (1 - text.alphaF());
    };
    const double above =
        light(seen(text.redF(), ground.redF()), seen(text.greenF(), ground.greenF()),
              seen(text.blueF(), ground.blueF()));
    const double below = light(ground.redF(), ground.greenF(), ground.blueF());
    return std::max(above, below) / std::min(above, below);
}

TEST(InvitationsOfAddIns, CanBeReadInLightAndInDark)
{
    const QPalette light = QGuiApplication::palette();
    QPalette dark = light; // as desktops do it that know nothing of this role
    dark.setColor(QPalette::Base, QColor(20, 22, 24));
    dark.setColor(QPalette::Text, QColor(239, 240, 241));
    for (const QPalette& palette : {light, dark}) {
        QGuiApplication::setPalette(palette);
        const ImportWindow import(TextLanguage::English, {});
        const QPalette seen = import.SourceText->palette();
        EXPECT_GE(contrast(seen.color(QPalette::PlaceholderText), seen.color(QPalette::Base)), 4.5);
    }
    QGuiApplication::setPalette(light);
}

class CaptionsOfAddIns : public testing::TestWithParam<TextLanguage>
{};

TEST_P(CaptionsOfAddIns, FitAndShareNoAccessKey)
{
    ImportWindow import(GetParam(), {});
    ExportWindow exporting(GetParam(), {});
    for (QWidget* window : std::initializer_list<QWidget*>{&import, &exporting}) {
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        EXPECT_EQ(captionsThatDoNotFit(*window), QStringList());
        window->resize(window->minimumSizeHint());
        QTest::qWait(0);
        EXPECT_EQ(captionsThatDoNotFit(*window), QStringList())
            << qPrintable(captionsThatDoNotFit(*window).join(u'\n'));
        EXPECT_EQ(accessKeyComplaints(*window), QStringList())
            << qPrintable(accessKeyComplaints(*window).join(u'\n'));
        EXPECT_GE(captionCount(*window), 5);
        for (const QWidget* control :
             window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (control->focusPolicy() != Qt::NoFocus &&
                !control->objectName().startsWith(u"qt_") &&
                qobject_cast<const QPushButton*>(control) == nullptr) {
                EXPECT_FALSE(control->accessibleName().isEmpty())
                    << qPrintable(control->objectName());
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, CaptionsOfAddIns,
                         testing::Values(TextLanguage::English, TextLanguage::Russian));

} // namespace orvanta::test
