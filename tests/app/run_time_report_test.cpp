#include "app/run_time_report.h"
#include "app/shown_watch.h"
#include "core/spoilt_count.h"
#include "tests/support/probe.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

TEST(RunTimeReportTest, TheDialogShowsNumberAndText)
{
    const auto dialog = reportDialog(RuntimeError(ErrorNumber::TypeMismatch));
    EXPECT_EQ(dialog->text(), u"Run-time error '13':\n\nType mismatch");
}

TEST(RunTimeReportTest, ASpoiltCountIsNamedWithItsPlaceAndWhatToDo)
{
    const SpoiltCount error(ErrorNumber::TypeMismatch,
                            {u"/home/a/orvanta.ini"_s, u"types"_s, u"num"_s}, u"many"_s);
    const QString advice =
        u"/home/a/orvanta.ini: in section [types] the value of num is \"many\". "
        "Write a whole number from 0 to 32767 there (how many such lines follow) "
        "and start the program again."_s;
    EXPECT_EQ(reportLine(error), u"Run-time error '13': Type mismatch");
    EXPECT_EQ(reportAdvice(error, TextLanguage::English), advice);
    EXPECT_EQ(reportDialog(error)->text(), u"Run-time error '13':\n\nType mismatch\n\n"_s + advice);
    EXPECT_TRUE(reportDialog(error, TextLanguage::Russian)
                    ->text()
                    .contains(u"/home/a/orvanta.ini: в разделе [types] значение num — «many»"_s));
}

TEST(RunTimeReportTest, TheDialogClosesByItsButtonByEscapeAndByTheWindowManager)
{
    const auto closers = {
        +[](QMessageBox* box) { QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton); },
        +[](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); },
        +[](QMessageBox* box) { box->close(); },
    };
    for (const auto closer : closers) {
        const auto dialog = reportDialog(RuntimeError(ErrorNumber::FileNotFound));
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
        closer(dialog.get());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog->isVisible(); }));
    }
}

TEST(RunTimeReportTest, TheLineOnStandardErrorIsOneLine)
{
    EXPECT_EQ(reportLine(RuntimeError(ErrorNumber::Overflow)), u"Run-time error '6': Overflow");
}

TEST(RunTimeReportTest, AnUntrappedErrorEndsTheProcessWithItsLineAndStatusOne)
{
    Probe program;
    program.startProgram("report_probe", {u"53"_s});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.readAllStandardError().endsWith("Run-time error '53': File not found\n"));
    EXPECT_EQ(program.readAllStandardOutput(), "released\n");
}

TEST(StandstillTest, NoTimerRunsWhileItLives)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    QTimer::singleShot(1, [&] { ++ticks; });
    timer.start(0);
    {
        const Standstill standstill;
        for (int round = 0; round < 20; ++round) {
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(ticks, 0);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }));
}

TEST(StandstillTest, CallsQueuedToTheProgramsObjectsDoNotRun)
{
    QWidget window;
    ShownWatch watch(window); // any object of the program's own kind
    QObject foreign;
    bool ran = false;
    bool ranForeign = false;
    const Standstill standstill;
    QMetaObject::invokeMethod(
        &watch, [&] { ran = true; }, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        &foreign, [&] { ranForeign = true; }, Qt::QueuedConnection);
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
    EXPECT_TRUE(ranForeign);
}

} // namespace orvanta
