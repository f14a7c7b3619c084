#include "core/earlier_versions.h"
#include "core/ini.h"
#include "model/lesson_check.h"
#include "tests/support/plain_user.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct LessonCheck : testing::Test
{
    ~LessonCheck() override { setVersionsFolder({}); }

    QString put(const QString& name, const QByteArray& content = "x") const
    {
        QDir(home.path()).mkpath(QFileInfo(name).path());
        return home.write(name, content);
    }
    [[nodiscard]] QString packet(const QString& name, const QStringList& paths) const
    {
        QString text = u"[main]\r\nfiles=%1\r\n"_s.arg(paths.size());
        for (qsizetype i = 1; i <= paths.size(); ++i) {
            text += u"[file%1]\r\npath=%2\r\ntext=Text %1\r\nmine=%1\r\n"_s.arg(QString::number(i),
                                                                                paths[i - 1]);
        }
        return put(name, text.toUtf8());
    }
    [[nodiscard]] static std::vector<CheckedDocument> check(const QString& what,
                                                            const CheckWishes& wishes = {})
    {
        return checkDocuments({what}, wishes);
    }
    [[nodiscard]] static QString pathIn(const QString& packet, int i)
    {
        return ReadIni(u"file"_s + QString::number(i), u"path"_s, packet);
    }

    SettingsFolder home{QByteArray()};
};

} // namespace

TEST_F(LessonCheck, EachTextIsAsWrittenElsewhereMissingOrNotOpenable)
{
    const QString clip = put(u"l/a.avi"_s);
    const QString moved = put(u"l/B.avi"_s);
    const auto checked = check(packet(
        u"l/p.vxl"_s, {clip, u"C:\\Old\\b.avi"_s, u"C:\\Old\\c.avi"_s, u"http://host/a.avi"_s}));
    ASSERT_EQ(checked.size(), 1U);
    EXPECT_EQ(checked[0].result, CheckResult::SomeMissing);
    const std::vector<CheckedText>& texts = checked[0].texts;
    ASSERT_EQ(texts.size(), 4U);
    EXPECT_EQ(texts[0].found.finding, Finding::AsWritten);
    EXPECT_EQ(texts[1].found.finding, Finding::Elsewhere);
    EXPECT_EQ(texts[1].found.file, moved);
    EXPECT_EQ(texts[2].found.finding, Finding::Nowhere);
    EXPECT_EQ(texts[3].found.finding, Finding::Refused);
    EXPECT_EQ(texts[3].number, 4);
}

TEST(LessonCheckOfAPlainUser, AClipThatMayNotBeReadIsNotOpenable)
{
    EXPECT_TRUE(test::holdsForPlainUser([] {
        const SettingsFolder own{QByteArray()};
        const QString clip = own.write(u"a.avi"_s, "x");
        EXPECT_EQ(::chmod(QFile::encodeName(clip).constData(), 0), 0);
        const QString packet = own.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
        const auto checked = checkDocuments({packet}, {});
        EXPECT_EQ(checked.at(0).texts.at(0).found.finding, Finding::Refused);
    }));
}

TEST_F(LessonCheck, AGroupIsCheckedWithItsPacketsAndPictures)
{
    put(u"course/1/a.avi"_s);
    (void)packet(u"course/1/One.vxl"_s, {u"a.avi"_s, u"missing.avi"_s});
    const QString group =
        put(u"course/g.vxg"_s, "[main]\nfiles=2\n[file1]\npath=C:\\Course\\1\\one.vxl\n"
                               "text=One\npicture=cover.png\n"
                               "[file2]\npath=two.vxl\ntext=Two\npicture={No picture}\n");
    const auto checked = check(group);
    ASSERT_EQ(checked.size(), 2U);
    ASSERT_EQ(checked[0].texts.size(), 3U);
    EXPECT_EQ(checked[0].texts[0].found.finding, Finding::Elsewhere);
    EXPECT_EQ(checked[0].texts[1].part, CheckedPart::Picture);
    EXPECT_EQ(checked[0].texts[1].found.finding, Finding::Nowhere);
    EXPECT_EQ(checked[0].texts[2].found.finding, Finding::Nowhere);
    EXPECT_EQ(checked[1].document, home.file(u"course/1/One.vxl"_s));
    EXPECT_EQ(checked[1].result, CheckResult::SomeMissing);
}

TEST_F(LessonCheck, OfAFolderEveryDocumentIsCheckedOnce)
{
    put(u"course/1/a.avi"_s);
    (void)packet(u"course/1/one.vxl"_s, {u"a.avi"_s});
    (void)packet(u"course/2/TWO.VXL"_s, {u"../1/a.avi"_s});
    put(u"course/g.vxg"_s, "[main]\nfiles=1\n[file1]\npath=1/one.vxl\ntext=One\n");
    const auto checked = check(home.file(u"course"_s));
    EXPECT_EQ(checked.size(), 3U);
    EXPECT_EQ(worstOf(checked), CheckResult::AllFound);
}

TEST_F(LessonCheck, WhatIsNoDocumentAndWhatCannotBeReadIsToldApart)
{
    struct Row
    {
        QString file;
        CheckResult result;
    };
    QDir(home.path()).mkpath(u"empty"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(home.file(u"pipe.vxl"_s)).constData(), 0600), 0);
    const Row rows[] = {
        {put(u"a.avi"_s), CheckResult::NoDocument},
        {put(u"prose.vxl"_s, "Dear all,\n"), CheckResult::NoDocument},
        {home.file(u"empty"_s), CheckResult::NoDocument},
        {home.file(u"absent.vxl"_s), CheckResult::NotChecked},
        {home.file(u"absent.avi"_s), CheckResult::NotChecked},
        {home.file(u"pipe.vxl"_s), CheckResult::NotChecked},
        {put(u"spoilt.vxl"_s, "[main]\nfiles=many\n"), CheckResult::NotChecked},
        {put(u"large.vxl"_s, "[main]\nfiles=99999\n"), CheckResult::NotChecked},
        {put(u"none.vxl"_s, "[main]\nfiles=0\n"), CheckResult::AllFound},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(worstOf(check(row.file)), row.result) << row.file.toStdString();
    }
    EXPECT_EQ(worstOf({}), CheckResult::NoDocument);
}

TEST_F(LessonCheck, WithoutAWishNothingIsWritten)
{
    put(u"l/B.avi"_s);
    const QString file = packet(u"l/p.vxl"_s, {u"C:\\Old\\b.avi"_s});
    const QByteArray before = home.bytes(u"l/p.vxl"_s);
    EXPECT_FALSE(check(file)[0].isWritten);
    EXPECT_EQ(home.bytes(u"l/p.vxl"_s), before);
}

TEST_F(LessonCheck, FixingWritesWhereFilesWereFoundAndKeepsEverythingElse)
{
    setVersionsFolder(home.file(u"versions"_s));
    const QString clip = put(u"l/B.avi"_s);
    put(u"l/a.avi"_s);
    const QString file =
        packet(u"l/p.vxl"_s, {u"a.avi"_s, u"C:\\Old\\b.avi"_s, u"C:\\Old\\c.avi"_s});
    const auto checked = check(file, {.fixes = true});
    EXPECT_TRUE(checked[0].isWritten);
    EXPECT_EQ(pathIn(file, 1), u"a.avi");
    EXPECT_EQ(pathIn(file, 2), clip);
    EXPECT_EQ(pathIn(file, 3), u"C:\\Old\\c.avi");
    EXPECT_EQ(ReadIni(u"file2"_s, u"text"_s, file), u"Text 2");
    EXPECT_EQ(ReadIni(u"file2"_s, u"mine"_s, file), u"2");
    EXPECT_EQ(earlierVersions(file).size(), 1U);
    EXPECT_FALSE(check(file, {.fixes = true})[0].isWritten); // there is nothing left to do
}

TEST_F(LessonCheck, RelativePathsAreWrittenForWhatLiesBelowTheDocument)
{
    const QString outside = put(u"other/o.avi"_s);
    const QString absolute = put(u"l/sub/a.avi"_s);
    put(u"l/B.avi"_s);
    const QString blank = put(u"l/ c.avi"_s); // no document could hold that name by itself
    const QString file = packet(u"l/p.vxl"_s, {absolute, u"C:\\Old\\b.avi"_s, outside, blank});
    EXPECT_TRUE(check(file, {.fixes = true, .makesRelative = true})[0].isWritten);
    EXPECT_EQ(pathIn(file, 1), u"sub/a.avi");
    EXPECT_EQ(pathIn(file, 2), u"B.avi");
    EXPECT_EQ(pathIn(file, 3), outside);
    EXPECT_EQ(pathIn(file, 4), blank);
    EXPECT_EQ(check(file)[0].result, CheckResult::AllFound);
}

TEST_F(LessonCheck, ABrakePacketAndAGroupAreFixedToo)
{
    put(u"l/Film.avi"_s);
    const QString packetFile =
        put(u"l/p.vxl"_s, "[main]\nfiles=1\nfile=C:\\Old\\film.avi\nbrakes=2\n"
                          "[brake1]\ntime=0\ntext=A\n[brake2]\ntime=12,5\ntext=B\n");
    const QString group = put(u"l/g.vxg"_s, "[main]\nfiles=1\n[file1]\npath=D:\\X\\P.VXL\n"
                                            "text=One\npicture={No picture}\n");
    const auto checked = check(group, {.fixes = true, .makesRelative = true});
    ASSERT_EQ(checked.size(), 2U);
    EXPECT_EQ(ReadIni(u"file1"_s, u"path"_s, group), u"p.vxl");
    EXPECT_EQ(ReadIni(u"file1"_s, u"picture"_s, group), u"{No picture}");
    EXPECT_EQ(ReadIni(u"main"_s, u"file"_s, packetFile), u"Film.avi");
    EXPECT_EQ(ReadIni(u"brake2"_s, u"time"_s, packetFile), u"12,5");
}

} // namespace orvanta
