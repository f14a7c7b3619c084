#include "core/document_writer.h"
#include "core/earlier_versions.h"
#include "core/ini.h"
#include "tests/core/test_folder.h"
#include "tests/support/error_of.h"
#include "tests/support/log_capture.h"
#include "tests/support/plain_user.h"

#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

class Documents : public test::FolderTest
{
protected:
    /// Writes the one key of most documents here.
    static void writeFiles(DocumentWriter& writer, const QString& files)
    {
        writer.write(u"main"_s, u"files"_s, files);
    }
};

TEST_F(Documents, KeysGoToTheirSections)
{
    const QString file = path(u"a.vxl"_s);
    DocumentWriter writer(file);
    writeFiles(writer, u"1"_s);
    writer.write(u"file1"_s, u"path"_s, u"/a.avi"_s);
    writer.write(u"main"_s, u"brakes"_s, u"0"_s);
    writer.finish();
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=1\r\nbrakes=0\r\n[file1]\r\npath=/a.avi\r\n");
}

TEST_F(Documents, AppearWholeAtTheEnd)
{
    const QString file = put(u"a.vxl"_s, "[main]\r\nold=1\r\n");
    DocumentWriter writer(file);
    writeFiles(writer, u"0"_s);
    EXPECT_EQ(bytesOf(file), "[main]\r\nold=1\r\n");
    writer.finish();
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=0\r\n");
    EXPECT_EQ(names(), QStringList(u"a.vxl"_s));
}

TEST_F(Documents, AWriterThatIsGivenUpLeavesTheEarlierOne)
{
    const QString file = put(u"a.vxl"_s, "[main]\r\nold=1\r\n");
    {
        DocumentWriter writer(file);
        writeFiles(writer, u"0"_s);
    }
    EXPECT_EQ(bytesOf(file), "[main]\r\nold=1\r\n");
    EXPECT_EQ(names(), QStringList(u"a.vxl"_s));
}

TEST_F(Documents, WhereThereWasNoneWhatWasWrittenSoFarStays)
{
    const QString file = path(u"a.vxl"_s);
    {
        DocumentWriter writer(file);
        writeFiles(writer, u"2"_s);
        EXPECT_EQ(errorOf([&] { writer.write(u"main"_s, u"[no key"_s, u"1"_s); }), 75);
    }
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=2\r\n");
    EXPECT_EQ(names(), QStringList(u"a.vxl"_s));
}

TEST_F(Documents, AfterAFailingStepNothingMoreIsWritten)
{
    const QString file = put(u"a.vxl"_s, "[main]\r\nold=1\r\n");
    DocumentWriter writer(file);
    EXPECT_EQ(errorOf([&] { writer.write(u"main"_s, u"[no key"_s, u"1"_s); }), 75);
    EXPECT_EQ(errorOf([&] { writeFiles(writer, u"0"_s); }), 75);
    EXPECT_EQ(errorOf([&] { writer.finish(); }), 75);
    EXPECT_EQ(bytesOf(file), "[main]\r\nold=1\r\n");
}

TEST_F(Documents, AMissingFolderIsAnAccessErrorAtTheFirstStep)
{
    const test::LogCapture log("orvanta.errors");
    DocumentWriter writer(path(u"missing/a.vxl"_s));
    EXPECT_EQ(errorOf([&] { writeFiles(writer, u"0"_s); }), 75);
    EXPECT_EQ(log.lines().size(), 1);
}

TEST_F(Documents, AFolderOfTheSameNameIsAnAccessError)
{
    ASSERT_TRUE(QDir().mkdir(path(u"a.vxl"_s)));
    DocumentWriter writer(path(u"a.vxl"_s));
    EXPECT_EQ(errorOf([&] {
                  writeFiles(writer, u"0"_s);
                  writer.finish();
              }),
              75);
    EXPECT_EQ(names(), QStringList(u"a.vxl"_s));
}

TEST_F(Documents, AProtectedOneIsAnAccessErrorAndStays)
{
    EXPECT_TRUE(test::holdsForPlainUser([] {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.vxl"_s);
        ASSERT_TRUE(writeBytes(file, "[main]\r\nold=1\r\n"));
        ASSERT_EQ(chmod(QFile::encodeName(file).constData(), 0444), 0);
        DocumentWriter writer(file);
        EXPECT_EQ(errorOf([&] { writeFiles(writer, u"0"_s); }), 75);
        EXPECT_EQ(bytesOf(file), "[main]\r\nold=1\r\n");
    }));
}

TEST_F(Documents, InAFolderThatTakesNoNewFilesAreWrittenInPlaceOnceTheEarlierOneIsKept)
{
    EXPECT_TRUE(test::holdsForPlainUser([] {
        const QTemporaryDir folder;
        const QTemporaryDir versions;
        const QString file = folder.filePath(u"a.vxl"_s);
        ASSERT_TRUE(writeBytes(file, "[main]\r\nold=1\r\nlonger=than the new one\r\n"));
        ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);
        const auto save = [&] {
            DocumentWriter writer(file);
            writeFiles(writer, u"0"_s);
            writer.finish();
        };
        EXPECT_EQ(errorOf(save), 75); // nowhere to keep the earlier one
        EXPECT_TRUE(bytesOf(file).contains("old=1"));
        setVersionsFolder(versions.path());
        EXPECT_EQ(errorOf(save), 0);
        EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=0\r\n");
        const auto kept = earlierVersions(file);
        EXPECT_EQ(kept.size(), 1U);
        EXPECT_TRUE(kept.size() == 1 && bytesOf(kept.front().file).contains("old=1"));
        setVersionsFolder({});
        chmod(QFile::encodeName(folder.path()).constData(), 0755);
    }));
}

TEST_F(Documents, TwoWritersOfOneDocumentDoNotMix)
{
    const QString file = path(u"a.vxl"_s);
    DocumentWriter first(file);
    first.write(u"main"_s, u"files"_s, u"1"_s);
    DocumentWriter second(file);
    EXPECT_EQ(errorOf([&] { second.write(u"main"_s, u"files"_s, u"2"_s); }), 75);
    first.finish();
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=1\r\n");
}

TEST_F(Documents, KeepModeAndSymbolicLinks)
{
    ASSERT_TRUE(QDir().mkdir(path(u"real"_s)));
    const QString real = put(u"real/a.vxl"_s, "[main]\r\n");
    ASSERT_EQ(chmod(QFile::encodeName(real).constData(), 0640), 0);
    const QString link = path(u"link.vxl"_s);
    ASSERT_TRUE(QFile::link(real, link));
    DocumentWriter writer(link);
    writeFiles(writer, u"0"_s);
    writer.finish();
    EXPECT_EQ(bytesOf(real), "[main]\r\nfiles=0\r\n");
    struct stat status = {};
    ASSERT_EQ(lstat(QFile::encodeName(link).constData(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ASSERT_EQ(stat(QFile::encodeName(real).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(Documents, NewOnesHaveTheModeOfAnyNewFile)
{
    const QString file = path(u"a.vxl"_s);
    DocumentWriter writer(file);
    writeFiles(writer, u"0"_s);
    writer.finish();
    struct stat ordinary = {};
    struct stat written = {};
    ASSERT_EQ(stat(QFile::encodeName(put(u"b"_s, "")).constData(), &ordinary), 0);
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &written), 0);
    EXPECT_EQ(written.st_mode, ordinary.st_mode);
}

TEST_F(Documents, NamesOfAnyLengthCanBeWritten)
{
    const QString file = path(QString(120, u'ж') + u".vxl"_s);
    DocumentWriter writer(file);
    writeFiles(writer, u"0"_s);
    writer.finish();
    EXPECT_EQ(ReadIni(u"main"_s, u"files"_s, file), u"0"_s);
}

} // namespace orvanta
