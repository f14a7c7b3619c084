// Files that no program wrote: linear time and memory, and never another exception.
#include "core/ini.h"
#include "core/packet_file.h"
#include "tests/core/test_folder.h"
#include "tests/support/error_of.h"

#include <cstdio>
#include <ctime>
#include <random>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kMega = 1000000;

class HostileFiles : public test::FolderTest
{
protected:
    /// Expects the action to need little processor time and prints how much it was.
    template <typename Action> static void expectQuick(const Action& action)
    {
        const std::clock_t begin = std::clock();
        action();
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        std::printf("[ MEASURED ] %.3f s\n", seconds);
        EXPECT_LT(seconds, kPatience);
    }

private:
#ifdef NDEBUG
    static constexpr double kPatience = 2.5;
#else
    static constexpr double kPatience = 60; // sanitizers make it some thirty times slower
#endif
};

static QByteArray manySections(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        bytes += "[file" + QByteArray::number(i) + "]\npath=" + QByteArray::number(i) + "\n";
    }
    return bytes;
}

TEST_F(HostileFiles, AMillionSectionsAreFound)
{
    const QString file = put(u"a.vxl"_s, manySections(kMega));
    expectQuick([&] {
        EXPECT_EQ(ReadIni(u"FILE999999"_s, u"path"_s, file), u"999999"_s);
        EXPECT_EQ(ReadIni(u"file0"_s, u"path"_s, file), u"0"_s);
    });
}

TEST_F(HostileFiles, AMillionSectionsOfOneNameCostNoMore)
{
    const QString file = put(u"a.vxl"_s, QByteArray("[s]\nk=1\n").repeated(kMega));
    expectQuick([&] { EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"1"_s); });
}

TEST_F(HostileFiles, TenMillionLinesAreLinear)
{
    for (const QByteArray& line : {QByteArray("k=v\n"), QByteArray("\r"), QByteArray(";\n"),
                                   QByteArray("[\n"), QByteArray("x\r\n")}) {
        const QString file = put(u"a.vxl"_s, "[s]\n" + line.repeated(10 * kMega) + "[t]\nlast=1\n");
        expectQuick([&] {
            EXPECT_EQ(ReadIni(u"t"_s, u"last"_s, file), u"1"_s) << line.toStdString();
            (void)ReadIni(u"s"_s, u"absent"_s, file);
        });
    }
}

TEST_F(HostileFiles, MillionsOfKeysInOneSectionAreLinear)
{
    QByteArray bytes = "[s]\n";
    for (int i = 0; i < 2 * kMega; ++i) {
        bytes += "k" + QByteArray::number(i) + "=" + QByteArray::number(i) + "\n";
    }
    const QString file = put(u"a.ini"_s, bytes);
    expectQuick([&] { EXPECT_EQ(ReadIni(u"s"_s, u"K1999999"_s, file), u"1999999"_s); });
}

TEST_F(HostileFiles, AHugeValueIsCut)
{
    const QByteArray huge(50 * kMega, 'x');
    const QString file =
        put(u"a.vxl"_s, "[main]\nfiles=1\n[file1]\npath=" + huge + "\ntext=" + huge);
    PlaylistEntry entry;
    expectQuick([&] { readPacketInto(entry, file); });
    EXPECT_EQ(entry.clip(1).Path.size(), 2047);
    EXPECT_EQ(entry.clip(1).Text.size(), 2047);
}

TEST_F(HostileFiles, HugeNamesAndBracketsAreRead)
{
    const QByteArray brackets(5 * kMega, '[');
    const QByteArray equals(5 * kMega, '=');
    const QString file =
        put(u"a.ini"_s, brackets + "\n" + brackets + "]\n[s]\n" + equals + "\nk=1\n");
    expectQuick([&] {
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
