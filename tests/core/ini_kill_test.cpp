#include "core/document_writer.h"
#include "core/ini.h"
#include "tests/core/test_folder.h"
#include "tests/support/child_process.h"

#include <algorithm>
#include <atomic>
#include <random>
#include <sys/mman.h>

namespace orvanta {

using namespace Qt::StringLiterals;
using test::Child;

constexpr int kKills = 200;

class KilledWriters : public test::FolderTest
{
protected:
    [[nodiscard]] std::chrono::microseconds randomDelay()
    {
        constexpr unsigned kLongestMicroseconds = 3000;
        return std::chrono::microseconds(m_random() % kLongestMicroseconds);
    }

private:
    std::mt19937 m_random{20010501};
};

/// A number that a child shares with the test.
class SharedNumber
{
public:
    SharedNumber()
        : m_number(static_cast<std::atomic<int>*>(mmap(nullptr, sizeof(std::atomic<int>),
                                                       PROT_READ | PROT_WRITE,
                                                       MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
        *m_number = 0;
    }
    ~SharedNumber() { munmap(m_number, sizeof(std::atomic<int>)); }
    SharedNumber(const SharedNumber&) = delete;
    SharedNumber& operator=(const SharedNumber&) = delete;

    [[nodiscard]] std::atomic<int>& value() const { return *m_number; }

private:
    std::atomic<int>* m_number;
};

TEST_F(KilledWriters, LeaveEveryEarlierSetting)
{
    const QByteArray kept = "; mine\r\n[options]\r\nas=1\r\nagnc=0\r\n[types]\r\nfile0=avi\r\n";
    const QString file = put(u"a.ini"_s, kept + "[save]\r\nvolume=0\r\nbalance=50\r\n");
    const SharedNumber reached;
    for (int i = 0; i < kKills; ++i) {
        Child writer([&] {
            for (;;) {
                const int next = reached.value() + 1;
                WriteIni(u"save"_s, u"volume"_s, QString::number(next), file);
                reached.value() = next;
            }
        });
        writer.killAfter(randomDelay());
        const int done = reached.value();
        const int stored = ReadIni(u"save"_s, u"volume"_s, file).toInt();
        ASSERT_TRUE(stored == done || stored == done + 1) << stored << " after " << done;
        ASSERT_EQ(bytesOf(file),
                  kept + "[save]\r\nvolume=" + QByteArray::number(stored) + "\r\nbalance=50\r\n");
    }
    EXPECT_GT(reached.value(), 0);
}

static QString textOf(int number)
{
    return u"Текст %1 "_s.arg(number) + QString(u"я"_s).repeated(number % 700);
}

static int countWrong(const QString& file, int firstEntry, int entries)
{
    const IniSnapshot snapshot(file);
    int wrong = 0;
    for (int i = firstEntry; i <= entries; ++i) {
        wrong += snapshot.read(u"file%1"_s.arg(i), u"text"_s) == textOf(i).trimmed() ? 0 : 1;
    }
    return wrong;
}

TEST_F(KilledWriters, LeaveEveryEntryThatWasAppendedBefore)
{
    constexpr int kNewest = 100;
    const QString file = path(u"a.vxl"_s);
    const SharedNumber reached;
    for (int i = 0; i < kKills; ++i) {
        Child writer([&] {
            for (;;) {
                const int next = reached.value() + 1;
                WriteIni(u"file%1"_s.arg(next), u"text"_s, textOf(next), file);
                reached.value() = next;
            }
        });
        writer.killAfter(randomDelay());
        const int done = reached.value();
        ASSERT_EQ(countWrong(file, std::max(1, done - kNewest), done), 0);
        const QString next = ReadIni(u"file%1"_s.arg(done + 1), u"text"_s, file);
        ASSERT_TRUE(next.isEmpty() || next == textOf(done + 1).trimmed()) << next.toStdString();
    }
    EXPECT_GT(reached.value(), 0);
    EXPECT_EQ(countWrong(file, 1, reached.value()), 0);
}

TEST_F(KilledWriters, OfADocumentLeaveTheEarlierOneWhole)
{
    const QByteArray earlier = "[main]\r\nfiles=1\r\n[file1]\r\npath=/a.avi\r\ntext=A\r\n";
    const QString file = put(u"a.vxl"_s, earlier);
    for (int i = 0; i < 50; ++i) {
        Child writer([&] {
            DocumentWriter document(file);
            for (int entry = 1;; ++entry) {
                document.write(u"file%1"_s.arg(entry), u"text"_s, u"new"_s);
            }
        });
        writer.killAfter(randomDelay());
        ASSERT_EQ(bytesOf(file), earlier);
    }
    DocumentWriter document(file);
    document.write(u"main"_s, u"files"_s, u"0"_s);
    document.finish();
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=0\r\n");
    EXPECT_EQ(names(), QStringList(u"a.vxl"_s)) << "what the killed writers left is gone";
}

} // namespace orvanta
