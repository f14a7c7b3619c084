// What is gathered of a lesson, and its documents in the box.

#include "companions/cdcreate/box_documents.h"
#include "companions/cdcreate/lesson_box.h"
#include "core/ini_document.h"
#include "tests/support/settings_folder.h"

#include <QDir>

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct LessonBox : testing::Test
{
    [[nodiscard]] BoxPlan gather(const QStringList& documents)
    {
        return gatherLesson(documents, work);
    }

    static IniDocument documentOf(const BoxPlan& plan, const QString& name)
    {
        for (const BoxDocument& document : plan.documents) {
            if (document.name == name) {
                return IniDocument(document.content);
            }
        }
        ADD_FAILURE() << "no document " << qPrintable(name);
        return IniDocument();
    }

    static QStringList namesOf(const BoxPlan& plan)
    {
        QStringList names;
        for (const BoxFile& file : plan.files) {
            names.append(file.name);
        }
        return names;
    }

    QString writeIn(const QString& name, const QByteArray& content) const
    {
        QDir(home.path()).mkpath(QFileInfo(name).path());
        return home.write(name, content);
    }

    SettingsFolder home{QByteArray()};
    BoxWork work;
};

} // namespace

TEST_F(LessonBox, HoldsEveryClipAndPictureOfAGroupOnce)
{
    const QString clip = writeIn(u"clips/a.avi"_s, "clip");
    writeIn(u"other/A.avi"_s, "other clip");
    writeIn(u"drum.jpg"_s, "picture");
    writeIn(u"one.vxl"_s, "[main]\nfiles=3\n[file1]\npath=clips/a.avi\ntext=First\n"
                          "[file2]\npath=other\\A.avi\n[file3]\npath=" +
                              clip.toUtf8() + "\n");
    writeIn(u"two.vxl"_s, "[main]\nfile=clips/a.avi\nbrakes=1\nfiles=1\n[file1]\n"
                          "path=clips/a.avi\ntext=clips/a.avi\n[brake1]\ntime=1,5\ntext=End\n");
    const QString group = writeIn(
        u"Lesson.vxg"_s, "[main]\nfiles=2\n[file1]\npath=one.vxl\ntext=One\npicture=drum.jpg\n"
                         "[file2]\npath=two.vxl\ntext=Two\npicture={No picture}\n");
    const BoxPlan plan = gather({group});
    EXPECT_EQ(plan.title, u"Lesson");
    EXPECT_EQ(plan.group, u"Lesson.vxg");
    EXPECT_EQ(namesOf(plan),
              (QStringList{u"pictures/drum.jpg"_s, u"media/a.avi"_s, u"media/A (2).avi"_s}));
    EXPECT_TRUE(plan.missing.empty());
    ASSERT_EQ(plan.packets.size(), 2U);
    EXPECT_EQ(plan.packets[0].title, u"One");
    EXPECT_EQ(plan.packets[0].picture, u"pictures/drum.jpg");
    EXPECT_EQ(plan.packets[0].media,
              (QStringList{u"media/a.avi"_s, u"media/A (2).avi"_s, u"media/a.avi"_s}));
    EXPECT_EQ(plan.packets[1].media, QStringList(u"media/a.avi"_s));
    EXPECT_EQ(plan.packets[1].entry.Clips[0].Text, u"End");

    const IniDocument packet = documentOf(plan, u"one.vxl"_s);
    EXPECT_EQ(packet.value(u"file1"_s, u"path"_s), u"media\\a.avi");
    EXPECT_EQ(packet.value(u"file1"_s, u"text"_s), u"First");
    EXPECT_EQ(packet.value(u"file2"_s, u"path"_s), u"media\\A (2).avi");
    const IniDocument brakes = documentOf(plan, u"two.vxl"_s);
    EXPECT_EQ(brakes.value(u"main"_s, u"file"_s), u"media\\a.avi");
    EXPECT_EQ(brakes.value(u"file1"_s, u"path"_s), u"media\\a.avi");
    EXPECT_EQ(brakes.value(u"file1"_s, u"text"_s), u"media\\a.avi");
    EXPECT_EQ(brakes.value(u"brake1"_s, u"time"_s), u"1,5");
    const IniDocument members = documentOf(plan, plan.group);
    EXPECT_EQ(members.value(u"file1"_s, u"picture"_s), u"pictures\\drum.jpg");
    EXPECT_EQ(members.value(u"file2"_s, u"picture"_s), u"{No picture}");
}

TEST_F(LessonBox, OfPacketsAloneGetsAGroup)
{
    writeIn(u"a.avi"_s, "clip");
    const QString one = writeIn(u"Урок.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    const QString two = writeIn(u"more/урок.vxl"_s, "[main]\nfiles=1\n[file1]\npath=../a.avi\n");
    const BoxPlan plan = gather({one, two});
    EXPECT_EQ(plan.group, u"Урок.vxg");
    const IniDocument group = documentOf(plan, plan.group);
    EXPECT_EQ(group.value(u"main"_s, u"files"_s), u"2");
    EXPECT_EQ(group.value(u"file1"_s, u"path"_s), u"Урок.vxl");
    EXPECT_EQ(group.value(u"file1"_s, u"text"_s), u"Урок");
    EXPECT_EQ(group.value(u"file2"_s, u"path"_s), u"урок (2).vxl");
    EXPECT_EQ(namesOf(plan), QStringList(u"media/a.avi"_s));
}

TEST_F(LessonBox, KeepsTheLinesOfWhatIsMissing)
{
    writeIn(u"there.avi"_s, "clip");
    ASSERT_EQ(::mkfifo(QFile::encodeName(home.file(u"pipe.avi"_s)), 0600), 0);
    const QString packet =
        writeIn(u"p.vxl"_s, "[main]\nfiles=4\n[file1]\npath=C:\\Old\\gone.avi\ntext=Gone\n"
                            "[file2]\npath=there.avi\n[file3]\npath=http://host/a.avi\n"
                            "[file4]\npath=pipe.avi\n");
    const BoxPlan plan = gather({packet});
    ASSERT_EQ(plan.missing.size(), 3U);
    EXPECT_EQ(plan.missing[0].name, u"media/gone.avi");
    EXPECT_EQ(plan.missing[0].what.found.finding, Finding::Nowhere);
    EXPECT_EQ(plan.missing[1].what.found.finding, Finding::Refused);
    EXPECT_EQ(plan.missing[2].what.text, u"pipe.avi");
    const IniDocument box = documentOf(plan, u"p.vxl"_s);
    EXPECT_EQ(box.value(u"file1"_s, u"path"_s), u"media\\gone.avi");
    EXPECT_EQ(box.value(u"file1"_s, u"text"_s), u"Gone");
    EXPECT_EQ(box.value(u"file3"_s, u"path"_s), u"http://host/a.avi");
    EXPECT_EQ(plan.packets[0].media, (QStringList{{}, u"media/there.avi"_s, {}, {}}));
}

TEST_F(LessonBox, RefusesWhatIsNoLesson)
{
    const QString alien = writeIn(u"a.txt"_s, "text");
    const QString empty = writeIn(u"b.vxl"_s, "nothing");
    EXPECT_EQ(gather({alien, empty, home.file(u"absent.vxg"_s)}).refused.size(), 3);
    EXPECT_TRUE(gather({}).packets.empty());
}

TEST_F(LessonBox, GoesOnWithAPacketThatIsSpoilt)
{
    writeIn(u"a.avi"_s, "clip");
    writeIn(u"bad.vxl"_s, "[main]\nfiles=many\n");
    writeIn(u"good.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    const QString group = writeIn(u"g.vxg"_s, "[main]\nfiles=3\n[file1]\npath=bad.vxl\n[file2]\n"
                                              "path=gone.vxl\n[file3]\npath=good.vxl\n");
    const BoxPlan plan = gather({group});
    EXPECT_EQ(plan.missing.size(), 2U);
    EXPECT_EQ(namesOf(plan), QStringList(u"media/a.avi"_s));
    EXPECT_EQ(documentOf(plan, u"bad.vxl"_s).value(u"main"_s, u"files"_s), u"many");
    EXPECT_EQ(documentOf(plan, u"g.vxg"_s).value(u"file2"_s, u"path"_s), u"gone.vxl");
}

TEST(RewrittenDocuments, KeepEverythingElseByteForByte)
{
    const QByteArray before =
        "; a note\r\n[Main]\r\nFiles = 2\r\nsubject=drums\r\n\r\n"
        "[FILE1]\r\n  Path = C:\\a.avi \r\ntext= First \r\n[extra]\r\nx=1\r\n";
    EXPECT_EQ(rewrittenDocument(before, {{{u"file1"_s, u"path"_s}, u"media\\a.avi"_s}}),
              "; a note\r\n[Main]\r\nFiles = 2\r\nsubject=drums\r\n\r\n"
              "[FILE1]\r\n  Path =media\\a.avi\r\ntext= First \r\n[extra]\r\nx=1\r\n");
    EXPECT_EQ(rewrittenDocument(before, {}), before);
}

TEST(RewrittenDocuments, SayTheSameUnderEveryCodePage)
{
    setLegacyCodePage(u"windows-1251"_s);
    const QByteArray cyrillic = "[main]\nfiles=1\n[file1]\npath=D:\\\xD3\xF0\xEE\xEA.avi\n"
                                "text=\xCF\xF0\xE8\xE2\xE5\xF2\n";
    const NewValues values = {{{u"file1"_s, u"path"_s}, u"media\\Урок.avi"_s}};
    const QByteArray after = rewrittenDocument(cyrillic, values);
    const QByteArray fromUtf8 =
        rewrittenDocument(u"[main]\nfiles=1\n[file1]\npath=x\ntext=Привет\n"_s.toUtf8(), values);
    setLegacyCodePage(u"windows-1252"_s);
    EXPECT_EQ(IniDocument(after).value(u"file1"_s, u"path"_s), u"media\\Урок.avi");
    EXPECT_EQ(IniDocument(after).value(u"file1"_s, u"text"_s), u"Привет");
    EXPECT_EQ(fromUtf8, after);
    EXPECT_EQ(rewrittenDocument(after, values), after);
    setLegacyCodePage({});
}

TEST(RewrittenDocuments, OfManyLinesTakeNoLonger)
{
    constexpr int kMost = 32767;
    QByteArray packet = "[main]\r\nfiles=32767\r\n";
    NewValues values;
    for (int i = 1; i <= kMost; ++i) {
        packet += "[file" + QByteArray::number(i) + "]\r\npath=C:\\a.avi\r\ntext=x\r\n";
        values.insert({u"file"_s + QString::number(i), u"path"_s}, u"media\\a.avi"_s);
    }
    const auto begin = std::chrono::steady_clock::now();
    const IniDocument document(rewrittenDocument(packet, values));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
    EXPECT_EQ(document.value(u"file32767"_s, u"path"_s), u"media\\a.avi");
}

TEST(ReadMe, IsInBothLanguagesForNotepadToo)
{
    const QByteArray bytes = readMe(u"Урок"_s, u"Урок.vxg"_s, {u"media/gone.avi"_s}, true);
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
    const QString text = QString::fromUtf8(bytes);
    EXPECT_EQ(text.count(u"Урок.vxg"), 2);
    EXPECT_EQ(text.count(u"media/gone.avi"), 2);
    EXPECT_EQ(text.count(u"index.html"), 2);
    EXPECT_FALSE(readMe(u"a"_s, u"a.vxg"_s, {}, false).contains("index.html"));
}

} // namespace orvanta::test
