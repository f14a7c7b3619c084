#include "core/error_boundary.h"
#include "tests/support/log_capture.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

[[noreturn]] static void failWith(ErrorNumber number)
{
    throw RuntimeError(number);
}

TEST(RuntimeError, ReportNamesNumberAndText)
{
    EXPECT_EQ(RuntimeError(ErrorNumber::TypeMismatch).report(),
              u"Run-time error '13':\n\nType mismatch"_s);
}

TEST(RuntimeError, EveryNumberHasItsText)
{
    struct Row
    {
        int number;
        QString text;
    };
    const std::vector<Row> rows = {{5, u"Invalid procedure call or argument"_s},
                                   {6, u"Overflow"_s},
                                   {7, u"Out of memory"_s},
                                   {9, u"Subscript out of range"_s},
                                   {11, u"Division by zero"_s},
                                   {13, u"Type mismatch"_s},
                                   {53, u"File not found"_s},
                                   {75, u"Path/File access error"_s},
                                   {76, u"Path not found"_s}};
    for (const Row& row : rows) {
        EXPECT_EQ(RuntimeError(static_cast<ErrorNumber>(row.number)).text(), row.text);
    }
}

TEST(StatementByStatement, TheStatementsBehindAFailingOneRun)
{
    bool nextRan = false;
    EXPECT_FALSE(resumeNext("test", [] { failWith(ErrorNumber::Overflow); }));
    EXPECT_TRUE(resumeNext("test", [&] { nextRan = true; }));
    EXPECT_TRUE(nextRan);
}

TEST(StatementByStatement, ASwallowedErrorIsLogged)
{
    const test::LogCapture log("orvanta.errors");
    resumeNext("loading", [] { failWith(ErrorNumber::TypeMismatch); });
    EXPECT_EQ(log.lines(), QStringList(u"loading: error 13, Type mismatch"_s));
}

TEST(StatementByStatement, AFailingConditionIsFalse)
{
    EXPECT_FALSE(conditionHolds("test", []() -> bool { failWith(ErrorNumber::Overflow); }));
    EXPECT_TRUE(conditionHolds("test", [] { return true; }));
}

TEST(Trapped, AnErrorEndsTheHandlerSilently)
{
    bool restRan = false;
    trapped("test", [&] {
        failWith(ErrorNumber::FileNotFound);
        restRan = true;
    });
    EXPECT_FALSE(restRan);
}

TEST(HandlerBoundary, AnErrorGoesToTheReport)
{
    std::optional<ErrorNumber> reported;
    const HandlerBoundary boundary([&](const RuntimeError& error) { reported = error.number(); });
    boundary([] { failWith(ErrorNumber::DivisionByZero); })();
    EXPECT_EQ(reported, ErrorNumber::DivisionByZero);
}

TEST(HandlerBoundary, MemoryThatRunsOutIsOneOfTheErrors)
{
    const auto allocate = [] { throw std::bad_alloc(); };
    const test::LogCapture log("orvanta.errors");
    EXPECT_FALSE(resumeNext("loading", allocate));
    EXPECT_EQ(log.lines(), QStringList(u"loading: error 7, Out of memory"_s));
    std::optional<ErrorNumber> reported;
    const HandlerBoundary boundary([&](const RuntimeError& error) { reported = error.number(); });
    boundary(allocate)();
    EXPECT_EQ(reported, ErrorNumber::OutOfMemory);
}

TEST(HandlerBoundary, ArgumentsOfTheSignalArePassedThrough)
{
    int sum = 0;
    const HandlerBoundary boundary;
    boundary([&](int a, int b) { sum = a + b; })(2, 3);
    EXPECT_EQ(sum, 5);
}

TEST(HandlerBoundary, WithoutAReportTheErrorIsLogged)
{
    const test::LogCapture log("orvanta.errors");
    HandlerBoundary()([] { failWith(ErrorNumber::PathNotFound); })();
    EXPECT_EQ(log.lines(), QStringList(u"handler without a report: error 76, Path not found"_s));
}

} // namespace orvanta
