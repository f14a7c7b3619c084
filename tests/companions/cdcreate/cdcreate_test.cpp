// The built program at a terminal: lessons that travel.

#include "companions/cdcreate/box_command.h"
#include "core/group_file.h"
#include "core/packet_file.h"
#include "model/lesson_check.h"
#include "platform/process/media_locator.h"
#include "tests/companions/cdcreate/box_places.h"
#include "tests/companions/cdcreate/random_lesson.h"
#include "tests/support/plain_user.h"
#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QRandomGenerator>

#include <sys/stat.h>
#include <thread>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct CdCreate : testing::Test
{
    CdCreate() { ::chmod(QFile::encodeName(room.path()), 0755); }

    static QProcessEnvironment environment(const SettingsFolder& home)
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s}) {
            variables.remove(name);
        }
        variables.insert(u"ORVANTA_HOME"_s, home.path());
        return variables;
    }

    int cdcreate(const QStringList& arguments)
    {
        Probe program;
        program.setProcessEnvironment(environment(home));
        program.startProgram("cdcreate", arguments);
        EXPECT_TRUE(program.waitForFinished(120'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        said = program.readAllStandardError();
        printed = program.readAllStandardOutput();
        return program.exitCode();
    }

    SettingsFolder home{"[main]\nlanguage=1\n"};
    SettingsFolder room{QByteArray()};
    QByteArray said;
    QByteArray printed;
};

/// Titles, texts and times of a lesson, whatever its paths are.
QStringList wordsOf(const QString& document)
{
    std::vector<PlaylistEntry> packets;
    if (document.endsWith(u".vxg")) {
        readGroupInto(packets, document, [&](const QString& text) {
            return findMediaFile(text, {.packet = QFileInfo(document).path()}, SearchDepth::Patient)
                .file;
        });
    } else {
        readPacketInto(packets.emplace_back(), document);
    }
    QStringList words;
    for (const PlaylistEntry& packet : packets) {
        words.append(packet.Title);
        for (const ClipEntry& clip : packet.Clips) {
            words.append(clip.Time + u'|' + clip.Text);
        }
    }
    return words;
}

QString groupIn(const QString& box)
{
    const QStringList groups = QDir(box).entryList({u"*.vxg"_s}, QDir::Files);
    EXPECT_EQ(groups.size(), 1);
    return box + u'/' + groups.value(0);
}

} // namespace

TEST(BoxArguments, NameLessonsAndWishes)
{
    const BoxCommand command = boxCommand({u"--out"_s, u"x.iso"_s, u"a.vxl"_s, u"--skip-missing"_s,
                                           u"--force"_s, u"--web"_s, u"--"_s, u"--b.vxl"_s});
    EXPECT_TRUE(command.isUnderstood && command.skipsMissing && command.replaces);
    EXPECT_TRUE(command.forBrowsers);
    EXPECT_EQ(command.out, u"x.iso");
    EXPECT_EQ(command.lessons, (QStringList{u"a.vxl"_s, u"--b.vxl"_s}));
    EXPECT_TRUE(boxCommand({}).isUnderstood) << "a window asks";
    EXPECT_TRUE(boxCommand({u"a.vxl"_s}).isUnderstood);
    for (const QStringList& wrong :
         {QStringList{u"--out"_s}, QStringList{u"--out"_s, u"x"_s}, QStringList{u"--strange"_s},
          QStringList{u"--force"_s, u"a.vxl"_s}}) {
        EXPECT_FALSE(boxCommand(wrong).isUnderstood) << qPrintable(wrong.join(u' '));
    }
}

TEST_F(CdCreate, TellsItsUseAndItsVersion)
{
    EXPECT_EQ(cdcreate({u"--help"_s}), 0);
    EXPECT_TRUE(printed.contains("--skip-missing"));
    EXPECT_EQ(cdcreate({u"--version"_s}), 0);
    EXPECT_TRUE(printed.startsWith("cdcreate"));
    EXPECT_EQ(cdcreate({u"--strange"_s}), 2);
    EXPECT_TRUE(said.startsWith("Usage:"));
}

TEST_F(CdCreate, TellsItsUseInTheLanguageOfTheProgram)
{
    home.write(u"orvanta.ini"_s, "[main]\nlanguage=2\n");
    EXPECT_EQ(cdcreate({u"--help"_s}), 0);
    EXPECT_TRUE(printed.startsWith("Вызов: cdcreate ")) << printed.constData();
}

TEST_F(CdCreate, EndsWithWhatBecameOfTheBox)
{
    room.write(u"a.avi"_s, "x");
    const QString sound = room.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    const QString poor =
        room.write(u"q.vxl"_s, "[main]\nfiles=2\n[file1]\npath=a.avi\n[file2]\npath=gone.avi\n");
    const QString out = room.file(u"box"_s);
    EXPECT_EQ(cdcreate({u"--out"_s, out, poor}), 2);
    EXPECT_EQ(said, poor.toUtf8() + ": clip 2: missing: gone.avi\n"
                                    "cdcreate: Something is missing: gone.avi\n");
    EXPECT_FALSE(QFile::exists(out));
    EXPECT_EQ(cdcreate({u"--out"_s, out, u"--skip-missing"_s, poor}), 1);
    EXPECT_TRUE(QFile::exists(out + u"/media/a.avi"_s));
    EXPECT_EQ(cdcreate({u"--out"_s, out, sound}), 2) << "there is a box already";
    EXPECT_EQ(cdcreate({u"--out"_s, out, u"--force"_s, sound}), 0);
    EXPECT_EQ(said, "");
    EXPECT_EQ(cdcreate({u"--out"_s, room.file(u"no/folder"_s), sound}), 2);
    EXPECT_EQ(cdcreate({u"--out"_s, room.file(u"other"_s), room.file(u"absent.vxg"_s)}), 2);
}

TEST_F(CdCreate, KnowsTheUsersDrivesMovedFoldersAndOldLettersAsThePlayerDoes)
{
    QDir(room.path()).mkpath(u"stick/X"_s);
    QDir(room.path()).mkpath(u"new"_s);
    QDir(room.path()).mkpath(u"lesson"_s);
    room.write(u"stick/X/a.avi"_s, "a");
    room.write(u"new/b.avi"_s, "b");
    home.write(u"platform.ini"_s,
               "[drives]\ne=" + room.file(u"stick"_s).toUtf8() +
                   "\n[moved]\nnum=1\nfrom1=/old/place\nto1=" + room.file(u"new"_s).toUtf8() +
                   "\n[text]\ncodepage=windows-1251\n");
    const QString packet =
        room.write(u"lesson/p.vxl"_s, "[main]\nfiles=2\n"
                                      "[file1]\npath=E:\\X\\a.avi\ntext=\xc4\xee\xe1\xf0\xfb\xe9\n"
                                      "[file2]\npath=/old/place/b.avi\n");
    ASSERT_EQ(cdcreate({u"--out"_s, room.file(u"box"_s), packet}), 0) << said.constData();
    EXPECT_TRUE(QFile::exists(room.file(u"box/media/a.avi"_s)));
    EXPECT_TRUE(QFile::exists(room.file(u"box/media/b.avi"_s)));
    EXPECT_TRUE(wordsOf(room.file(u"box/p.vxl"_s)).contains(u"|Добрый"_s));
}

TEST_F(CdCreate, TakesAPacketWhateverItIsCalled)
{
    room.write(u"a.avi"_s, "x");
    const QString packet =
        room.write(u"two\nlines \U0001F600.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    ASSERT_EQ(cdcreate({u"--out"_s, room.file(u"box"_s), packet}), 0) << said.constData();
    EXPECT_TRUE(QFile::exists(room.file(u"box/two_lines _.vxl"_s)));
}

TEST_F(CdCreate, PacksFiftyLessonsThatAreWholeElsewhere)
{
    QRandomGenerator random(20261122);
    for (int i = 0; i < 50; ++i) {
        SCOPED_TRACE(i);
        const QString folder = room.file(u"home%1"_s.arg(i));
        const RandomLesson lesson = makeRandomLesson(random, folder + u"/Lessons %1"_s.arg(i));
        const QStringList words = wordsOf(lesson.document);
        ASSERT_GE(words.size(), lesson.lines);
        QStringList boxes;
        for (const char* form : {"", ".iso", ".zip"}) {
            boxes.append(room.file(u"box%1"_s.arg(i)) + QString::fromUtf8(form));
            ASSERT_EQ(cdcreate({u"--out"_s, boxes.back(), lesson.document}), 0) << said.constData();
        }
        ASSERT_TRUE(QDir(folder).removeRecursively());
        for (const QString& box : boxes) {
            const QString elsewhere = takenOut(box, room.file(u"elsewhere"_s));
            runs(u"chmod"_s, {u"-R"_s, u"a-w,a+rX"_s, elsewhere});
            EXPECT_TRUE(holdsForPlainUser([&] {
                const auto checked = checkDocuments({elsewhere}, {});
                EXPECT_EQ(worstOf(checked), CheckResult::AllFound);
                for (const CheckedDocument& document : checked) {
                    for (const CheckedText& text : document.texts) {
                        EXPECT_EQ(text.found.finding, Finding::AsWritten) << qPrintable(text.text);
                    }
                }
                QStringList there = wordsOf(groupIn(elsewhere));
                if (lesson.document.endsWith(u".vxl")) { // the title is the box's
                    there.removeFirst();
                    EXPECT_EQ(there, words.mid(1));
                } else {
                    EXPECT_EQ(there, words);
                }
            })) << qPrintable(elsewhere);
            runs(u"chmod"_s, {u"-R"_s, u"u+w"_s, elsewhere});
            ASSERT_TRUE(QDir(elsewhere).removeRecursively());
        }
    }
}

TEST_F(CdCreate, KilledAtAnyMomentLeavesNoPartOfABoxUnderItsName)
{
    QDir(room.path()).mkpath(u"lesson"_s);
    QDir(room.path()).mkpath(u"out"_s);
    QByteArray packet = "[main]\nfiles=12\n";
    for (int i = 1; i <= 12; ++i) {
        const QByteArray number = QByteArray::number(i);
        room.write(u"lesson/%1.avi"_s.arg(i), QByteArray(4'000'000, char(i)));
        packet += "[file" + number + "]\npath=" + number + ".avi\n";
    }
    const QString document = room.write(u"lesson/p.vxl"_s, packet);
    const auto before = filesIn(room.file(u"lesson"_s));
    QRandomGenerator random(5);
    int killed = 0;
    for (int round = 0; round < 21; ++round) {
        const QString form = QStringList{u""_s, u".iso"_s, u".zip"_s}[round % 3];
        const QString target = room.file(u"out/box"_s + form);
        {
            Probe program;
            program.setProcessEnvironment(environment(home));
            program.startProgram("cdcreate", {u"--out"_s, target, document});
            ASSERT_TRUE(program.waitForStarted());
            std::this_thread::sleep_for(std::chrono::milliseconds(random.bounded(120)));
            program.kill();
            program.waitForFinished();
        }
        if (QFile::exists(target)) { // it was quicker
            const auto files = filesIn(takenOut(target, room.file(u"taken"_s)));
            EXPECT_EQ(files.size(), 15);
            EXPECT_EQ(files[u"media/12.avi"_s], before[u"12.avi"_s]);
            QDir(room.file(u"taken"_s)).removeRecursively();
        } else {
            ++killed;
        }
        ASSERT_LE(cdcreate({u"--out"_s, target, u"--force"_s, document}), 0) << said.constData();
        EXPECT_EQ(namesIn(room.file(u"out"_s)), QStringList(u"box"_s + form))
            << "what was left is cleared away";
        runs(u"rm"_s, {u"-r"_s, target});
    }
    EXPECT_GE(killed, 5);
    EXPECT_EQ(filesIn(room.file(u"lesson"_s)), before);
}

TEST_F(CdCreate, AskedToEndTakesBackWhatItHasBegun)
{
    QDir(room.path()).mkpath(u"out"_s);
    QFile large(room.file(u"large.avi"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    ASSERT_TRUE(large.resize(3'000'000'000)); // takes longer than what follows
    const QString document = room.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=large.avi\n");
    for (const char* form : {"", ".iso", ".zip"}) {
        Probe program;
        program.setProcessEnvironment(environment(home));
        program.startProgram(
            "cdcreate", {u"--out"_s, room.file(u"out/box"_s + QString::fromUtf8(form)), document});
        ASSERT_TRUE(program.waitForStarted());
        while (program.state() == QProcess::Running && namesIn(room.file(u"out"_s)).isEmpty()) {
            program.waitForFinished(1);
        }
        program.terminate();
        ASSERT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 2) << program.readAllStandardError().constData();
        EXPECT_EQ(namesIn(room.file(u"out"_s)), QStringList()) << form;
    }
}

} // namespace orvanta::test
