// Boxes of every form: whole or not there, and the lesson's own files as they were.

#include "companions/cdcreate/box_writer.h"
#include "companions/cdcreate/disc_drive.h"
#include "companions/cdcreate/lesson_box.h"
#include "core/descriptor.h"
#include "tests/companions/cdcreate/box_places.h"
#include "tests/support/plain_user.h"
#include "tests/support/settings_folder.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class BoxWriter : public testing::TestWithParam<const char*>
{
protected:
    BoxWriter()
    {
        QDir(room.path()).mkpath(u"lesson/clips"_s);
        QDir(room.path()).mkpath(u"out"_s);
        QRandomGenerator random(7);
        for (const QString& name : {u"a.avi"_s, u"Б.mp4"_s, u"empty.mp3"_s}) {
            QByteArray bytes(name.startsWith(u'e') ? 0 : 900'001, Qt::Uninitialized);
            for (char& byte : bytes) {
                byte = static_cast<char>(random.generate());
            }
            room.write(u"lesson/clips/"_s + name, bytes);
        }
        packet = room.write(u"lesson/p.vxl"_s,
                            u"[main]\nfiles=3\n[file1]\npath=clips/a.avi\n[file2]\n"
                            "path=clips/Б.mp4\n[file3]\npath=clips/empty.mp3\n"_s.toUtf8());
        before = filesIn(room.file(u"lesson"_s));
    }

    [[nodiscard]] QString target() const
    {
        return room.file(u"out/box"_s + QString::fromUtf8(GetParam()));
    }
    [[nodiscard]] QStringList written() const { return namesIn(room.file(u"out"_s)); }

    /// What there was instead of a box; nothing when it was made.
    std::optional<BoxProblem> make(const BoxPlan& plan, BoxWork& work, bool replaces = false)
    {
        try {
            writeBox(plan, {.target = target(), .skipsMissing = true, .replaces = replaces}, work);
            return std::nullopt;
        } catch (const BoxFailure& failure) {
            said = failure.about();
            return failure.problem();
        }
    }
    std::optional<BoxProblem> make(bool replaces = false)
    {
        BoxWork work;
        return make(gatherLesson({packet}, work), work, replaces);
    }

    void expectBox() const
    {
        const QString box = takenOut(target(), room.file(u"taken"_s));
        const auto files = filesIn(box);
        EXPECT_EQ(files.size(), 6);
        EXPECT_EQ(files[u"media/a.avi"_s], before[u"clips/a.avi"_s]);
        EXPECT_EQ(files[u"media/Б.mp4"_s], before[u"clips/Б.mp4"_s]);
        EXPECT_TRUE(files.contains(u"media/empty.mp3"_s));
        EXPECT_TRUE(files.contains(u"p.vxg"_s) && files.contains(u"READ ME.txt"_s));
    }

    void expectUntouched() const { EXPECT_EQ(filesIn(room.file(u"lesson"_s)), before); }

    SettingsFolder room{QByteArray()};
    QString packet;
    QString said;
    QMap<QString, QByteArray> before;
};

INSTANTIATE_TEST_SUITE_P(Forms, BoxWriter, testing::Values("", ".iso", ".zip"),
                         [](const auto& form) {
                             const std::string ending = form.param;
                             return ending.empty() ? "Folder" : ending == ".iso" ? "Image" : "Zip";
                         });

} // namespace

TEST_P(BoxWriter, HoldsEverythingAndLeavesNothingBesides)
{
    EXPECT_EQ(make(), std::nullopt) << qPrintable(said);
    EXPECT_EQ(written(), QStringList(QFileInfo(target()).fileName()));
    expectBox();
    expectUntouched();
}

TEST_P(BoxWriter, GoesThroughItsStepsAndTellsHowFar)
{
    QList<BoxStep> steps;
    qint64 all = 0;
    qint64 done = 0;
    BoxWork work([&](const BoxState& state) {
        if (steps.isEmpty() || steps.back() != state.step) {
            steps.append(state.step);
        }
        if (state.step == BoxStep::Writing) {
            all = state.all;
            EXPECT_GE(state.done, done);
            done = state.done;
        }
    });
    const BoxPlan plan = gatherLesson({packet}, work);
    EXPECT_EQ(make(plan, work), std::nullopt);
    EXPECT_EQ(steps, (QList{BoxStep::Gathering, BoxStep::Writing, BoxStep::Checking}));
    EXPECT_EQ(all, 2 * 900'001);
    EXPECT_EQ(done, all);
}

TEST_P(BoxWriter, HoldsWhatComesBesides)
{
    BoxWork work;
    const QString clip = room.write(u"made.webm"_s, "made");
    const auto extras = [&](BoxPlan& plan, BoxWork&) {
        return std::vector<BoxExtra>{{plan.names.take({}, u"index.html"_s), "<html>", {}, {}},
                                     {plan.names.take(u"media"_s, u"A.AVI"_s), {}, clip, {}}};
    };
    writeBox(gatherLesson({packet}, work), {.target = target(), .extras = extras}, work);
    const auto files = filesIn(takenOut(target(), room.file(u"taken"_s)));
    EXPECT_EQ(files[u"index.html"_s], "<html>");
    EXPECT_EQ(files[u"media/A (2).AVI"_s], "made");
    EXPECT_TRUE(files[u"READ ME.txt"_s].contains("index.html"));
}

TEST_P(BoxWriter, ReplacesAnEarlierBoxOnlyWhenAskedTo)
{
    ASSERT_EQ(make(), std::nullopt);
    EXPECT_EQ(make(), BoxProblem::Exists);
    EXPECT_EQ(make(true), std::nullopt) << qPrintable(said);
    EXPECT_EQ(written(), QStringList(QFileInfo(target()).fileName()));
    expectBox();
}

TEST_P(BoxWriter, NeverReplacesWhatIsNoBox)
{
    QDir().mkpath(target());
    room.write(u"out/box"_s + QString::fromUtf8(GetParam()) + u"/READ ME.txt"_s, "mine");
    const QString letter =
        room.write(u"out/box"_s + QString::fromUtf8(GetParam()) + u"/letter.odt"_s, "mine");
    EXPECT_EQ(make(true), BoxProblem::Exists);
    EXPECT_TRUE(QFile::exists(letter));
    EXPECT_EQ(written().size(), 1);
}

TEST_P(BoxWriter, NeverFollowsALink)
{
    const QString elsewhere = room.write(u"elsewhere"_s, "mine");
    ASSERT_TRUE(QFile::link(elsewhere, target()));
    EXPECT_EQ(make(true), BoxProblem::Exists);
    EXPECT_EQ(room.bytes(u"elsewhere"_s), "mine");
}

TEST_P(BoxWriter, LeavesNothingWhenItIsStoppedAtAnyMoment)
{
    int moments = 0;
    for (int stopAt = 1; stopAt <= 40; ++stopAt) {
        BoxWork* stopped = nullptr;
        int moment = 0;
        BoxWork work([&](const BoxState&) {
            if (++moment == stopAt) {
                stopped->stop();
            }
        });
        stopped = &work;
        std::optional<BoxProblem> problem;
        try {
            problem = make(gatherLesson({packet}, work), work);
        } catch (const BoxFailure& failure) {
            problem = failure.problem();
        }
        if (!problem) {
            break;
        }
        ++moments;
        EXPECT_EQ(problem, BoxProblem::Stopped) << qPrintable(said);
        EXPECT_EQ(written(), QStringList());
        expectUntouched();
    }
    EXPECT_GE(moments, 3);
}

TEST_P(BoxWriter, LeavesNothingWhenAClipHasVanishedOrChanged)
{
    BoxWork work;
    const BoxPlan plan = gatherLesson({packet}, work);
    room.write(u"lesson/clips/a.avi"_s, "shorter");
    EXPECT_EQ(make(plan, work), BoxProblem::Unreadable);
    EXPECT_TRUE(said.contains(u"a.avi")) << qPrintable(said);
    EXPECT_EQ(written(), QStringList());
    ASSERT_TRUE(QFile::remove(room.file(u"lesson/clips/a.avi"_s)));
    EXPECT_EQ(make(plan, work), BoxProblem::Unreadable);
    ASSERT_EQ(::mkfifo(QFile::encodeName(room.file(u"lesson/clips/a.avi"_s)), 0600), 0);
    EXPECT_EQ(make(plan, work), BoxProblem::Unreadable);
    EXPECT_EQ(written(), QStringList());
}

TEST_P(BoxWriter, LeavesNothingWhenAClipMayNotBeRead)
{
    BoxWork work;
    const BoxPlan plan = gatherLesson({packet}, work);
    ASSERT_EQ(::chmod(QFile::encodeName(room.path()), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(room.file(u"out"_s)), 0777), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(room.file(u"lesson/clips/a.avi"_s)), 0), 0);
    EXPECT_TRUE(holdsForPlainUser([&] {
        EXPECT_EQ(make(plan, work), BoxProblem::Unreadable) << qPrintable(said);
        BoxWork again;
        EXPECT_EQ(gatherLesson({packet}, again).missing.size(), 1U);
    }));
    EXPECT_EQ(written(), QStringList());
}

TEST_P(BoxWriter, LeavesNothingWhereNobodyMayWrite)
{
    ASSERT_EQ(::chmod(QFile::encodeName(room.path()), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(room.file(u"out"_s)), 0555), 0);
    EXPECT_TRUE(holdsForPlainUser([&] { EXPECT_EQ(make(), BoxProblem::Unwritable); }));
    EXPECT_EQ(written(), QStringList());
}

TEST_P(BoxWriter, LeavesNothingWhenWritingFailsHalfWay)
{
    Child child([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {300'000, 300'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto problem = make();
        _exit(problem == BoxProblem::TooLarge || problem == BoxProblem::ProgramFailed ? 0 : 1);
    });
    EXPECT_TRUE(child.endsWell());
    EXPECT_EQ(written(), QStringList());
    expectUntouched();
}

TEST_P(BoxWriter, LooksForRoomFirstAndLeavesNothingOnAFullDisk)
{
    const QByteArray disk = QFile::encodeName(room.file(u"out"_s));
    if (::mount("none", disk.constData(), "tmpfs", 0, "size=1000k") != 0) {
        GTEST_SKIP() << "only an administrator can make a small disk";
    }
    EXPECT_EQ(make(), BoxProblem::NoRoom);
    EXPECT_EQ(written(), QStringList());
    ASSERT_EQ(::mount("none", disk.constData(), "tmpfs", MS_REMOUNT, "size=4000k"), 0);
    EXPECT_EQ(make(), std::nullopt) << qPrintable(said);
    ASSERT_EQ(::umount(disk.constData()), 0);
}

TEST_P(BoxWriter, FillsNoDiskThatAnotherProgramFillsMeanwhile)
{
    const QByteArray disk = QFile::encodeName(room.file(u"out"_s));
    if (::mount("none", disk.constData(), "tmpfs", 0, "size=4000k") != 0) {
        GTEST_SKIP() << "only an administrator can make a small disk";
    }
    bool isFilled = false;
    BoxWork work([&](const BoxState& state) {
        if (state.step == BoxStep::Writing && !std::exchange(isFilled, true)) {
            room.write(u"out/other"_s, QByteArray(2'900'000, 'x'));
        }
    });
    EXPECT_EQ(make(gatherLesson({packet}, work), work), BoxProblem::NoRoom) << qPrintable(said);
    EXPECT_EQ(written(), QStringList(u"other"_s));
    ASSERT_EQ(::umount(disk.constData()), 0);
}

TEST_P(BoxWriter, ClearsAwayWhatAKilledOneHasLeftAndNothingElse)
{
    const QString left = room.file(u"out/.box.box-part-aB3dE6"_s);
    const QString living = room.file(u"out/.box.box-part-Live77"_s);
    const QString foreign = room.file(u"out/.box.box-part-longer-name"_s);
    for (const QString& folder : {left, living, foreign}) {
        QDir().mkpath(folder + u"/box/media"_s);
    }
    const Descriptor lock = Descriptor::open(QFile::encodeName(living), O_RDONLY | O_DIRECTORY);
    ASSERT_TRUE(lock.lock(LOCK_EX | LOCK_NB));
    EXPECT_EQ(make(), std::nullopt);
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(living + u"/box/media"_s));
    EXPECT_TRUE(QFile::exists(foreign));
}

TEST_P(BoxWriter, IsNotMadeOfWhatIsNoLesson)
{
    BoxWork work;
    EXPECT_EQ(make(gatherLesson({room.file(u"absent.vxl"_s)}, work), work), BoxProblem::NoLesson);
    BoxPlan plan = gatherLesson({packet}, work);
    plan.missing.push_back({packet, {}});
    try {
        writeBox(plan, {.target = target()}, work);
        ADD_FAILURE() << "something is missing, and nobody said to go on";
    } catch (const BoxFailure& failure) {
        EXPECT_EQ(failure.problem(), BoxProblem::Missing);
    }
    EXPECT_EQ(written(), QStringList());
}

TEST(BoxDiscs, AreBurntReadBackAndLeaveNothingBesides)
{
    SettingsFolder room{QByteArray()};
    room.write(u"a.avi"_s, QByteArray(300'000, 'x'));
    const QString packet = room.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    const QString disc = room.write(u"disc"_s, {}); // a file that behaves like one
    QList<BoxStep> steps;
    BoxWork work([&](const BoxState& state) {
        if (steps.isEmpty() || steps.back() != state.step) {
            steps.append(state.step);
        }
    });
    const BoxOrder order = {.target = room.file(u"box.iso"_s), .drive = u"stdio:"_s + disc};
    writeBox(gatherLesson({packet}, work), order, work);
    EXPECT_EQ(steps, (QList{BoxStep::Gathering, BoxStep::Writing, BoxStep::Checking,
                            BoxStep::Burning, BoxStep::Checking}));
    EXPECT_EQ(namesIn(room.path()).size(), 3) << "clip, packet and disc";
    ASSERT_TRUE(QFile::rename(disc, room.file(u"disc.iso"_s)));
    const auto files = filesIn(takenOut(room.file(u"disc.iso"_s), room.file(u"taken"_s)));
    EXPECT_EQ(files[u"media/a.avi"_s].size(), 300'000);
    try {
        writeBox(gatherLesson({packet}, work), {.target = order.target, .drive = u"/dev/sr99"_s},
                 work);
        ADD_FAILURE() << "there is no such drive";
    } catch (const BoxFailure& failure) {
        EXPECT_EQ(failure.problem(), BoxProblem::NoDrive) << failure.what();
    }
}

TEST(BoxDiscs, AreBurntInTheDrivesThatTheImageProgramNames)
{
    const auto drives =
        drivesIn(u"Beginning to scan for devices ...\n\nFull drive scan done\n-----\n"
                 "0  -dev '/dev/sr0' rwrw-- :  'HL-DT-ST' 'DVDRAM GH24NSC0'\n"
                 "1  -dev '/dev/sr1' rwrw-- :  'TSSTcorp' 'CDDVDW SH-S223C' \n-----\n"_s);
    ASSERT_EQ(drives.size(), 2U);
    EXPECT_EQ(drives[0].device, u"/dev/sr0");
    EXPECT_EQ(drives[1].name, u"TSSTcorp CDDVDW SH-S223C");
    EXPECT_TRUE(drivesIn(u"xorriso : SORRY : No drives found\n"_s).empty());
}

TEST(BoxFolders, NeverReplaceTheBoxThatTheyAreMadeOf)
{
    SettingsFolder room{QByteArray()};
    room.write(u"a.avi"_s, "x");
    const QString packet = room.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    BoxWork work;
    const QString box = room.file(u"box"_s);
    writeBox(gatherLesson({packet}, work), {.target = box}, work);
    room.write(u"box/another.vxl"_s, "[main]\nfiles=1\n");
    try {
        writeBox(gatherLesson({box + u"/p.vxg"_s}, work), {.target = box, .replaces = true}, work);
        ADD_FAILURE() << "what is in the box besides is gone";
    } catch (const BoxFailure& failure) {
        EXPECT_EQ(failure.problem(), BoxProblem::Exists);
    }
    EXPECT_TRUE(QFile::exists(box + u"/another.vxl"_s));
}

TEST(BoxFolders, ThatAreEmptyBecomeTheBox)
{
    SettingsFolder room{QByteArray()};
    room.write(u"a.avi"_s, "x");
    const QString packet = room.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    QDir(room.path()).mkpath(u"empty"_s);
    BoxWork work;
    writeBox(gatherLesson({packet}, work), {.target = room.file(u"empty"_s)}, work);
    EXPECT_TRUE(QFile::exists(room.file(u"empty/media/a.avi"_s)));
}

} // namespace orvanta::test
