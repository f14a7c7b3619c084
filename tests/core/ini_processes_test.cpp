#include "core/descriptor.h"
#include "core/ini.h"
#include "tests/core/test_folder.h"
#include "tests/support/child_process.h"

#include <chrono>
#include <fcntl.h>
#include <functional>
#include <future>
#include <sys/file.h>

namespace orvanta {

using namespace Qt::StringLiterals;
using test::Child;

class IniProcesses : public test::FolderTest
{};

static void writeKeys(const QString& file, const QString& section, const QString& word, int count)
{
    for (int i = 0; i < count; ++i) {
        WriteIni(section, word + QString::number(i), QString::number(i), file);
    }
}

static int countMissing(const QString& file, const QString& section, const QString& word, int count)
{
    int missing = 0;
    for (int i = 0; i < count; ++i) {
        const QString key = word + QString::number(i);
        missing += ReadIni(section, key, file) == QString::number(i) ? 0 : 1;
    }
    return missing;
}

TEST_F(IniProcesses, TwoProgramsThatWriteDifferentKeysLoseNothing)
{
    constexpr int kKeys = 300;
    const QString file = put(u"a.ini"_s, "[first]\r\n[second]\r\n");
    Child first([&] { writeKeys(file, u"first"_s, u"a"_s, kKeys); });
    Child second([&] { writeKeys(file, u"second"_s, u"b"_s, kKeys); });
    writeKeys(file, u"second"_s, u"c"_s, kKeys);
    ASSERT_TRUE(first.endsWell());
    ASSERT_TRUE(second.endsWell());
    EXPECT_EQ(countMissing(file, u"first"_s, u"a"_s, kKeys), 0);
    EXPECT_EQ(countMissing(file, u"second"_s, u"b"_s, kKeys), 0);
    EXPECT_EQ(countMissing(file, u"second"_s, u"c"_s, kKeys), 0);
}

TEST_F(IniProcesses, AForeignLockDelaysButNeverStops)
{
    const QString file = put(u"a.ini"_s, "[main]\r\nk=1\r\n");
    Descriptor foreign = Descriptor::open(QFile::encodeName(file), O_RDWR);
    ASSERT_TRUE(foreign.lock(LOCK_EX | LOCK_NB));
    auto value = std::async(std::launch::async, [&] {
        QString before = ReadIni(u"main"_s, u"k"_s, file);
        WriteIni(u"main"_s, u"k"_s, u"2"_s, file);
        return before;
    });
    EXPECT_EQ(value.wait_for(std::chrono::seconds(60)), std::future_status::ready);
    foreign.close(); // also lets go who would wait for ever
    EXPECT_EQ(value.get(), u"1"_s);
    EXPECT_EQ(ReadIni(u"main"_s, u"k"_s, file), u"2"_s);
}

static std::chrono::steady_clock::duration timeOf(const std::function<void()>& action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::steady_clock::now() - begin;
}

TEST_F(IniProcesses, AForeignLockThatStaysIsWaitedForOnce)
{
    const QString file = put(u"kept.ini"_s, "[main]\r\nk=1\r\n");
    const Descriptor foreign = Descriptor::open(QFile::encodeName(file), O_RDWR);
    ASSERT_TRUE(foreign.lock(LOCK_EX | LOCK_NB));
    const auto first = timeOf([&] { WriteIni(u"main"_s, u"k"_s, u"0"_s, file); });
    const auto others = timeOf([&] {
        for (int i = 1; i <= 30; ++i) {
            WriteIni(u"main"_s, u"k"_s, QString::number(i), file);
        }
    });
    EXPECT_LT(others, first * 10);
    EXPECT_EQ(ReadIni(u"main"_s, u"k"_s, file), u"30"_s);
}

TEST_F(IniProcesses, ProgramsThatCreateTheSameFileLoseNothing)
{
    for (int round = 0; round < 50; ++round) {
        const QString file = path(u"%1.ini"_s.arg(round));
        Child other([&] { WriteIni(u"other"_s, u"k"_s, u"1"_s, file); });
        WriteIni(u"own"_s, u"k"_s, u"2"_s, file);
        ASSERT_TRUE(other.endsWell());
        ASSERT_EQ(ReadIni(u"other"_s, u"k"_s, file), u"1"_s);
        ASSERT_EQ(ReadIni(u"own"_s, u"k"_s, file), u"2"_s);
    }
}

TEST_F(IniProcesses, ChangesAtOnceOfSeveralProgramsAreCountedOneByOne)
{
    constexpr int kRounds = 200;
    const QString file = put(u"a.ini"_s, "[ftl]\r\nnum=0\r\n");
    const auto countUp = [&] {
        for (int i = 0; i < kRounds; ++i) {
            (void)changeIniAtOnce(file, [](const auto& read) {
                const int number = read(u"ftl"_s, u"num"_s).toInt();
                return std::vector<IniChange>{{u"ftl"_s, u"num"_s, QString::number(number + 1)}};
            });
        }
    };
    Child other(countUp);
    countUp();
    ASSERT_TRUE(other.endsWell());
    EXPECT_EQ(ReadIni(u"ftl"_s, u"num"_s, file).toInt(), 2 * kRounds);
}

/// The child grows a value that always reads as a whole: "<n>:" and n letters.
static bool isWhole(const QString& value)
{
    const qsizetype colon = value.indexOf(u':');
    return colon > 0 && value.size() - colon - 1 == value.left(colon).toInt();
}

TEST_F(IniProcesses, AReaderNeverSeesHalfALine)
{
    constexpr int kSections = 2000;
    const QString file = path(u"a.ini"_s);
    Child writer([&] {
        for (int i = 1; i <= kSections; ++i) {
            const int length = 100 + i % 1900;
            const QString value = QString::number(length) + u':' + QString(length, u'x');
            WriteIni(u"file%1"_s.arg(i), u"text"_s, value, file);
        }
    });
    for (int i = 1; i <= kSections;) {
        const QString value = ReadIni(u"file%1"_s.arg(i), u"text"_s, file);
        if (!value.isEmpty()) {
            ASSERT_TRUE(isWhole(value)) << value.toStdString();
            ++i;
        }
    }
    EXPECT_TRUE(writer.endsWell());
}

TEST_F(IniProcesses, AnotherProgramsWriteIsSeenByTheVeryNextRead)
{
    const QString file = put(u"a.ini"_s, "[s]\r\nk=0\r\nl=0\r\n");
    for (int i = 1; i <= 100; ++i) {
        ASSERT_EQ(ReadIni(u"s"_s, u"k"_s, file), QString::number(i - 1));
        Child other([&] { WriteIni(u"s"_s, u"k"_s, QString::number(i), file); });
        ASSERT_TRUE(other.endsWell());
        ASSERT_EQ(ReadIni(u"s"_s, u"k"_s, file), QString::number(i));
    }
}

} // namespace orvanta
