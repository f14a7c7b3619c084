// Files that no program wrote: linear time and memory, and never another exception.
#include "core/ini.h"
#include "core/packet_file.h"
#include "tests/core/test_folder.h"
#include "tests/support/error_of.h"
#include "tests/support/growth.h"

#include <cstdio>
#include <random>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kMega = 1000000;

class HostileFiles : public test::FolderTest
{
protected:
    /// Expects that ten times as much needs some ten times as much processor time, not a hundred
    /// times. prepare(count) writes a file of that size; action(file, count) reads it.
    template <typename Prepare, typename Action>
    static void expectLinear(qsizetype count, const Prepare& prepare, const Action& action)
    {
        const auto seconds = [&](qsizetype size) {
            const QString file = prepare(size);
            return test::cpuSeconds([&] { action(file, size); });
        };
        const double small = seconds(count / 10);
        const double large = seconds(count);
        const double times = test::growth(small, large, 0.02);
        std::printf("[ MEASURED ] %.3f s, %.1f times\n", large, times);
        EXPECT_LT(times, 35);
    }

    template <typename Action>
    void expectLinear(qsizetype count, const QByteArray& repeated, const QByteArray& end,
                      const Action& action)
    {
        const auto prepare = [&](qsizetype size) {
            return put(u"a.vxl"_s, "[s]\n" + repeated.repeated(size) + end);
        };
        expectLinear(count, prepare, action);
    }
};

static QByteArray manySections(qsizetype count)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < count; ++i) {
        bytes += "[file" + QByteArray::number(i) + "]\npath=" + QByteArray::number(i) + "\n";
    }
    return bytes;
}

TEST_F(HostileFiles, AMillionSectionsAreFound)
{
    const auto prepare = [this](qsizetype size) { return put(u"a.vxl"_s, manySections(size)); };
    expectLinear(kMega, prepare, [](const QString& file, qsizetype size) {
        const QString last = QString::number(size - 1);
        EXPECT_EQ(ReadIni(u"FILE"_s + last, u"path"_s, file), last);
        EXPECT_EQ(ReadIni(u"file0"_s, u"path"_s, file), u"0"_s);
    });
}

TEST_F(HostileFiles, AMillionSectionsOfOneNameCostNoMore)
{
    expectLinear(kMega, "k=1\n[s]\n", "k=1\n", [](const QString& file, qsizetype) {
        EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"1"_s);
    });
}

TEST_F(HostileFiles, TenMillionLinesAreLinear)
{
    for (const QByteArray& line : {QByteArray("k=v\n"), QByteArray("\r"), QByteArray(";\n"),
                                   QByteArray("[\n"), QByteArray("x\r\n")}) {
        expectLinear(10 * kMega, line, "[t]\nlast=1\n", [&](const QString& file, qsizetype) {
            EXPECT_EQ(ReadIni(u"t"_s, u"last"_s, file), u"1"_s) << line.toStdString();
            (void)ReadIni(u"s"_s, u"absent"_s, file);
        });
    }
}

TEST_F(HostileFiles, MillionsOfKeysInOneSectionAreLinear)
{
    const auto prepare = [this](qsizetype size) {
        QByteArray bytes = "[s]\n";
        for (qsizetype i = 0; i < size; ++i) {
            bytes += "k" + QByteArray::number(i) + "=" + QByteArray::number(i) + "\n";
        }
        return put(u"a.ini"_s, bytes);
    };
    expectLinear(2 * kMega, prepare, [](const QString& file, qsizetype size) {
        const QString last = QString::number(size - 1);
        EXPECT_EQ(ReadIni(u"s"_s, u"K"_s + last, file), last);
    });
}

TEST_F(HostileFiles, AHugeValueIsCut)
{
    const auto prepare = [this](qsizetype size) {
        const QByteArray huge(size, 'x');
        return put(u"a.vxl"_s, "[main]\nfiles=1\n[file1]\npath=" + huge + "\ntext=" + huge);
    };
    expectLinear(50 * kMega, prepare, [](const QString& file, qsizetype) {
        PlaylistEntry entry;
        readPacketInto(entry, file);
        EXPECT_EQ(entry.clip(1).Path.size(), 2047);
        EXPECT_EQ(entry.clip(1).Text.size(), 2047);
    });
}

TEST_F(HostileFiles, HugeNamesAndBracketsAreRead)
{
    const auto prepare = [this](qsizetype size) {
        const QByteArray brackets(size, '[');
        const QByteArray equals(size, '=');
        return put(u"a.ini"_s, brackets + "\n" + brackets + "]\n[s]\n" + equals + "\nk=1\n");
    };
    expectLinear(5 * kMega, prepare, [](const QString& file, qsizetype) {
        EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"1"_s);
        EXPECT_EQ(ReadIni(u"s"_s, QString(1000, u'='), file).size(), 2047);
    });
}

TEST_F(HostileFiles, NulsAreBytesLikeOthers)
{
    const QByteArray nuls(kMega, '\0');
    const QString file = put(u"a.ini"_s, nuls + "\n[s]\n" + nuls + "=1\nk=a" + nuls + "\n");
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"a"_s);
}

TEST_F(HostileFiles, RandomBytesRaiseNothingAndKeepWhatIsWritten)
{
    std::mt19937 random(20010501);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes;
        const std::size_t length = random() % 400;
        for (std::size_t i = 0; i < length; ++i) {
            constexpr std::string_view kSigns = "[]=;\"'\r\n\t \0kK\xD0\x9F\xFF\xFE\xEF\xBB\xBF";
            bytes += kSigns[random() % kSigns.size()];
        }
        const QString file = put(u"a.ini"_s, bytes);
        EXPECT_NO_THROW((void)ReadIni(u"k"_s, u"k"_s, file));
        ASSERT_TRUE(tryWriteIni(u"sec"_s, u"key"_s, u"value"_s, file))
            << bytes.toHex().toStdString();
        ASSERT_EQ(ReadIni(u"sec"_s, u"key"_s, file), u"value"_s) << bytes.toHex().toStdString();
        ASSERT_TRUE(tryWriteIni(u"sec"_s, u"key"_s, u"other"_s, file));
        ASSERT_EQ(ReadIni(u"sec"_s, u"key"_s, file), u"other"_s) << bytes.toHex().toStdString();
    }
}

TEST_F(HostileFiles, CountsThatNoListCanHaveAreTheStatedErrors)
{
    struct Row
    {
        QByteArray files;
        int error;
    };
    for (const Row& row : {Row{"99999", 6}, Row{"-1", 9}, Row{"abc", 13}, Row{"2.5", 0}}) {
        const QString file = put(u"a.vxl"_s, "[main]\nfiles=" + row.files + "\n");
        PlaylistEntry entry;
        EXPECT_EQ(errorOf([&] { readPacketInto(entry, file); }), row.error)
            << row.files.toStdString();
        EXPECT_EQ(entry.ClipCount.value(), row.error == 0 ? 2 : 0);
    }
}

} // namespace orvanta
