// bench_box [FOLDER]: what a box costs against "cp -r" of the same files, which promises less: a
// box is on the disk and read back when it gets its name. So "cp -r" is measured with "sync", too.
// Prints times and how fast the box is beside each; exit status 1 below the bound. Needs 4 GB.
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

constexpr int kClips = 40;
constexpr int kClipWords = 5'000'000; // of four bytes
constexpr int kRounds = 7;
constexpr double kBound = 0.9;

static bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    return process.waitForFinished(-1) && process.exitCode() == 0;
}

static void makeLesson(const QString& folder)
{
    QDir().mkpath(folder);
    QByteArray packet = "[main]\nfiles=" + QByteArray::number(kClips) + "\n";
    std::vector<quint32> words(kClipWords);
    for (int i = 1; i <= kClips; ++i) {
        QRandomGenerator::global()->fillRange(words.data(), kClipWords);
        const QString name = u"%1.avi"_s.arg(i);
        QFile clip(folder + u'/' + name);
        if (!clip.open(QIODevice::WriteOnly) ||
            clip.write(reinterpret_cast<const char*>(words.data()), kClipWords * 4) < 0) {
            qFatal("no room for the clips");
        }
        packet += "[file" + QByteArray::number(i) + "]\npath=" + name.toUtf8() + "\n";
    }
    QFile document(folder + u"/lesson.vxl"_s);
    if (!document.open(QIODevice::WriteOnly) || document.write(packet) < 0) {
        qFatal("no room for the packet");
    }
}

/// Seconds of the middle one of several rounds, each into a new place with nothing left to write.
static double seconds(const QString& target, const std::function<bool()>& make)
{
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        run(u"rm"_s, {u"-rf"_s, target});
        run(u"sync"_s, {});
        QElapsedTimer timer;
        timer.start();
        if (!make()) {
            qFatal("a round has failed");
        }
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
    }
    std::nth_element(times.begin(), times.begin() + kRounds / 2, times.end());
    return times[kRounds / 2];
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir room(application.arguments().value(1, QDir::tempPath()) + u"/bench_box"_s);
    const QString lesson = room.filePath(u"lesson"_s);
    const QString copy = room.filePath(u"copy"_s);
    makeLesson(lesson);
    const double plain = seconds(copy, [&] { return run(u"cp"_s, {u"-r"_s, lesson, copy}); });
    const double synced = seconds(copy, [&] {
        return run(u"cp"_s, {u"-r"_s, lesson, copy}) && run(u"sync"_s, {u"-f"_s, copy});
    });
    std::printf("cp -r %.3f s, with sync %.3f s\n", plain, synced);
    bool holds = true;
    for (const char* ending : {"", ".iso", ".zip"}) {
        const QString box = room.filePath(u"box"_s) + QString::fromUtf8(ending);
        const double time = seconds(box, [&] {
            return run(QCoreApplication::applicationDirPath() + u"/cdcreate"_s,
                       {u"--out"_s, box, lesson + u"/lesson.vxl"_s});
        });
        run(u"rm"_s, {u"-rf"_s, box});
        const bool isFolder = *ending == '\0';
        std::printf("box%-5s %.3f s: %.2f x cp -r with sync%s, %.2f x cp -r without\n", ending,
                    time, synced / time, isFolder ? " (bound 0.9)" : "", plain / time);
        holds = holds && (!isFolder || synced / time >= kBound);
    }
    return holds ? 0 : 1;
}
