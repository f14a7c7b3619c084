// Nothing is cached as far as a caller can see.
#include "core/ini.h"
#include "tests/core/test_folder.h"

#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

class IniFreshness : public test::FolderTest
{
protected:
    [[nodiscard]] QString value(const QString& file) const
    {
        return ReadIni(u"s"_s, u"k"_s, file, u"none"_s);
    }

    /// As a file that nobody has touched for a minute: the next read may rely on its identity.
    void makeOld(const QString& file) const
    {
        const timespec minuteAgo = {time(nullptr) - 60, 0};
        const std::array times = {minuteAgo, minuteAgo};
        ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times.data(), 0), 0);
    }
};

TEST_F(IniFreshness, ChangesOfTheSameLengthInPlaceAreSeenAtOnce)
{
    const QString file = path(u"a.ini"_s);
    for (int i = 0; i < 300; ++i) {
        const QByteArray digit = QByteArray::number(i % 10);
        put(u"a.ini"_s, "[s]\nk=" + digit + "\n");
        ASSERT_EQ(value(file), QString::fromLatin1(digit)) << "change " << i;
    }
}

TEST_F(IniFreshness, ChangesInPlaceRightAfterOurOwnWriteAreSeenAtOnce)
{
    const QString file = path(u"a.ini"_s);
    for (int i = 0; i < 300; ++i) {
        const QString ours = u"a%1"_s.arg(i % 10);
        WriteIni(u"s"_s, u"k"_s, ours, file);
        ASSERT_EQ(value(file), ours);
        const QByteArray theirs = "b" + QByteArray::number(i % 10);
        put(u"a.ini"_s, "[s]\r\nk=" + theirs + "\r\n");
        ASSERT_EQ(value(file), QString::fromLatin1(theirs)) << "change " << i;
    }
}

TEST_F(IniFreshness, AFileMovedIntoTheSamePlaceIsSeenAtOnce)
{
    const QString file = put(u"a.ini"_s, "[s]\nk=1\n");
    for (int i = 0; i < 200; ++i) {
        const QByteArray digit = QByteArray::number(i % 10);
        const QString other = put(u"b.ini"_s, "[s]\nk=" + digit + "\n");
        makeOld(other);
        ASSERT_EQ(rename(QFile::encodeName(other).constData(), QFile::encodeName(file).constData()),
                  0);
        ASSERT_EQ(value(file), QString::fromLatin1(digit)) << "change " << i;
    }
}

TEST_F(IniFreshness, ADeletedAndANewFileAreSeenAtOnce)
{
    const QString file = path(u"a.ini"_s);
    EXPECT_EQ(value(file), u"none"_s);
    WriteIni(u"s"_s, u"k"_s, u"1"_s, file);
    EXPECT_EQ(value(file), u"1"_s);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(value(file), u"none"_s);
    put(u"a.ini"_s, "[s]\nk=2\n");
    EXPECT_EQ(value(file), u"2"_s);
}

TEST_F(IniFreshness, AWriteBuildsOnWhatOthersWroteMeanwhile)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"s"_s, u"k"_s, u"1"_s, file);
    put(u"a.ini"_s, "[s]\r\nk=2\r\nother=x\r\n");
    WriteIni(u"s"_s, u"new"_s, u"3"_s, file);
    EXPECT_EQ(bytesOf(file), "[s]\r\nk=2\r\nother=x\r\nnew=3\r\n");
}

} // namespace orvanta
