#include "core/ini.h"
#include "core/run_time_error.h"
#include "tests/core/test_folder.h"
#include "tests/support/log_capture.h"
#include "tests/support/plain_user.h"

#include <QFileInfo>

#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

class WritingIni : public test::FolderTest
{
protected:
    [[nodiscard]] static struct stat status(const QString& path)
    {
        struct stat status = {};
        EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
        return status;
    }
};

TEST_F(WritingIni, ANewFileHasCrlfAndNoBlankLines)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"main"_s, u"language"_s, u"1"_s, file);
    WriteIni(u"ftl"_s, u"wr"_s, u"0"_s, file);
    WriteIni(u"main"_s, u"screxe"_s, u""_s, file);
    EXPECT_EQ(bytesOf(file), "[main]\r\nlanguage=1\r\nscrexe=\r\n[ftl]\r\nwr=0\r\n");
}

TEST_F(WritingIni, LineEndsStayAndANulCutsAText)
{
    const QString file = put(u"a.ini"_s, "[a]\nx=1"); // without a final line break
    WriteIni(u"b"_s, u"y"_s, u"2"_s, file);
    WriteIni(u"a"_s, u"z"_s, u"3"_s, file);
    EXPECT_EQ(bytesOf(file), "[a]\nx=1\nz=3\n[b]\ny=2\n");
    put(u"a.ini"_s, "[a]\rx=1\r");
    WriteIni(u"a"_s, u"y"_s, QString(u"one"_s) + QChar() + u"two"_s, file);
    EXPECT_EQ(bytesOf(file), "[a]\rx=1\ry=one\r");
}

TEST_F(WritingIni, AKeyThatWouldReadAsASectionIsRefused)
{
    const test::LogCapture log("orvanta.errors");
    const QString file = put(u"a.ini"_s, "[pos]\r\n");
    EXPECT_FALSE(tryWriteIni(u"pos"_s, u" [options]"_s, u"1"_s, file));
    EXPECT_FALSE(tryWriteIni(u"pos"_s, u"\t[x"_s, u"1"_s, file));
    EXPECT_EQ(bytesOf(file), "[pos]\r\n");
    EXPECT_EQ(log.lines().size(), 2);
}

TEST_F(WritingIni, AnEqualValueLeavesTheFileAlone)
{
    const QString file = put(u"a.ini"_s, "[s]\nk=1\n");
    const struct stat before = status(file);
    EXPECT_TRUE(tryWriteIni(u"s"_s, u"k"_s, u"1"_s, file));
    EXPECT_EQ(status(file).st_ino, before.st_ino);
    EXPECT_EQ(status(file).st_mtim.tv_nsec, before.st_mtim.tv_nsec);
}

TEST_F(WritingIni, ManyKeysBehindEachOtherAllArrive)
{
    const QString file = path(u"a.ini"_s);
    for (int i = 0; i < 3000; ++i) {
        WriteIni(u"pos"_s, u"Clip %1"_s.arg(i), u"%1.5"_s.arg(i), file);
    }
    EXPECT_EQ(bytesOf(file).count('\n'), 3001);
    for (int i = 0; i < 3000; i += 7) {
        EXPECT_EQ(ReadIni(u"pos"_s, u"CLIP %1"_s.arg(i), file), u"%1.5"_s.arg(i));
    }
}

TEST_F(WritingIni, LinesAcrossPagesOfTheFileArriveWhole)
{
    const QString file = path(u"a.ini"_s);
    QByteArray expected;
    for (int i = 0; i < 40; ++i) {
        const QString number = QString::number(i);
        const QString value = QString(u"ж"_s).repeated(997 + i);
        WriteIni(u"файл"_s + number, u"ключ"_s, value, file);
        expected += "[" + (u"файл"_s + number).toUtf8() + "]\r\n" + u"ключ="_s.toUtf8() +
                    value.toUtf8() + "\r\n";
    }
    EXPECT_EQ(bytesOf(file), expected);
}

TEST_F(WritingIni, ReplacingKeepsModeAndOwner)
{
    const QString file = put(u"a.ini"_s, "[s]\nk=1\nl=2\n");
    const QByteArray native = QFile::encodeName(file);
    ASSERT_EQ(chmod(native.constData(), 0640), 0);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(native.constData(), 12345, 23456), 0);
    }
    const struct stat before = status(file);
    EXPECT_TRUE(tryWriteIni(u"s"_s, u"k"_s, u"other"_s, file));
    const struct stat after = status(file);
    EXPECT_NE(after.st_ino, before.st_ino) << "it was not replaced";
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(WritingIni, ReplacingKeepsSymbolicLinks)
{
    ASSERT_TRUE(QDir().mkdir(path(u"real"_s)));
    const QString real = put(u"real/a.ini"_s, "[s]\nk=1\nl=2\n");
    const QString link = path(u"link.ini"_s);
    ASSERT_TRUE(QFile::link(real, link));
    WriteIni(u"s"_s, u"k"_s, u"5"_s, link);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(bytesOf(real), "[s]\nk=5\nl=2\n");
}

TEST_F(WritingIni, NothingElseIsLeftInTheFolder)
{
    const QString file = put(u"a.ini"_s, "[s]\nk=1\nl=2\n");
    WriteIni(u"s"_s, u"k"_s, u"2"_s, file);
    WriteIni(u"t"_s, u"k"_s, u"2"_s, file);
    EXPECT_EQ(names(), QStringList(u"a.ini"_s));
}

TEST_F(WritingIni, WhatAKilledWriterLeftIsRemoved)
{
    const QString file = put(u"a.ini"_s, "[s]\nk=1\nl=2\n");
    put(u".a.ini.new"_s, "half a li");
    WriteIni(u"s"_s, u"k"_s, u"2"_s, file);
    EXPECT_EQ(bytesOf(file), "[s]\nk=2\nl=2\n");
    EXPECT_EQ(names(), QStringList(u"a.ini"_s));
}

TEST_F(WritingIni, AHalfWrittenCommentAtTheEndDoesNoHarm)
{
    const QByteArray torn = "[s]\r\nk=Привет\r\n;ext=\xD0";
    const QString file = put(u"a.ini"_s, torn);
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"Привет"_s);
    WriteIni(u"t"_s, u"x"_s, u"да"_s, file);
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"Привет"_s);
    EXPECT_EQ(ReadIni(u"t"_s, u"x"_s, file), u"да"_s);
    EXPECT_TRUE(bytesOf(file).isValidUtf8());
}

TEST_F(WritingIni, AMissingFolderLosesTheWriteSilently)
{
    const test::LogCapture log("orvanta.errors");
    EXPECT_NO_THROW(WriteIni(u"s"_s, u"k"_s, u"1"_s, path(u"missing/a.ini"_s)));
    EXPECT_FALSE(tryWriteIni(u"s"_s, u"k"_s, u"1"_s, path(u"."_s)));
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(log.lines().size(), 2);
}

TEST_F(WritingIni, AProtectedFileLosesTheWriteSilently)
{
    EXPECT_TRUE(test::holdsForPlainUser([] {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.ini"_s);
        ASSERT_TRUE(writeBytes(file, "[s]\nk=1\n"));
        ASSERT_EQ(chmod(QFile::encodeName(file).constData(), 0444), 0);
        EXPECT_FALSE(tryWriteIni(u"s"_s, u"k"_s, u"2"_s, file));
        EXPECT_EQ(bytesOf(file), "[s]\nk=1\n");
    }));
}

class ChangingAtOnce : public WritingIni
{};

TEST_F(ChangingAtOnce, AllChangesComeInOneReplacement)
{
    const QString file = put(u"a.ini"_s, "[ftl]\r\nwr=0\r\nnum=1\r\n1=a\r\n");
    const ino_t before = status(file).st_ino;
    EXPECT_TRUE(changeIniAtOnce(file, [](const auto& read) {
        const QString next = QString::number(read(u"ftl"_s, u"num"_s).toInt() + 1);
        return std::vector<IniChange>{{u"ftl"_s, next, u"b"_s}, {u"ftl"_s, u"num"_s, next}};
    }));
    EXPECT_EQ(bytesOf(file), "[ftl]\r\nwr=0\r\nnum=2\r\n1=a\r\n2=b\r\n");
    EXPECT_NE(status(file).st_ino, before);
}

TEST_F(ChangingAtOnce, APlanWithoutChangesLeavesTheFile)
{
    const QString file = put(u"a.ini"_s, "[ftl]\r\nwr=1\r\n");
    const ino_t before = status(file).st_ino;
    EXPECT_TRUE(changeIniAtOnce(file, [](const auto&) { return std::vector<IniChange>(); }));
    EXPECT_EQ(status(file).st_ino, before);
}

TEST_F(ChangingAtOnce, AFailingPlanLeavesTheFileAndTheLockFree)
{
    const QString file = put(u"a.ini"_s, "[ftl]\r\nwr=0\r\n");
    EXPECT_THROW((void)changeIniAtOnce(file,
                                       [](const auto&) -> std::vector<IniChange> {
                                           throw RuntimeError(ErrorNumber::Overflow);
                                       }),
                 RuntimeError);
    EXPECT_EQ(bytesOf(file), "[ftl]\r\nwr=0\r\n");
    EXPECT_TRUE(tryWriteIni(u"ftl"_s, u"wr"_s, u"1"_s, file));
}

TEST_F(ChangingAtOnce, SaysWhenTheFileCannotBeWritten)
{
    EXPECT_FALSE(changeIniAtOnce(path(u"missing/a.ini"_s), [](const auto&) {
        return std::vector<IniChange>{{u"s"_s, u"k"_s, u"1"_s}};
    }));
}

} // namespace orvanta
