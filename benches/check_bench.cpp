// bench_check [FOLDER]: what "orvanta --check" of the largest packet costs, all of whose clips are
// there, against "find" that asks for the size of the same files. Prints both times and the
// ratio; exit status 1 beyond the bound.
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

constexpr int kClips = 32'767;
constexpr int kRounds = 7;
constexpr double kBoundSeconds = 1;

static void write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("no room for the lesson");
    }
}

/// The packet's path.
static QString makeLesson(const QString& folder)
{
    QDir().mkpath(folder + u"/clips"_s);
    QByteArray packet = "[main]\nfiles=" + QByteArray::number(kClips) + "\n";
    for (int i = 1; i <= kClips; ++i) {
        const QByteArray number = QByteArray::number(i);
        write(folder + u"/clips/"_s + QString::fromLatin1(number) + u".avi"_s, "x");
        packet += "[file" + number + "]\npath=clips/" + number + ".avi\ntext=Clip " + number + "\n";
    }
    const QString path = folder + u"/lesson.vxl"_s;
    write(path, packet);
    return path;
}

/// Seconds of a run that succeeds and prints a line for each clip.
static double seconds(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        qFatal("%s has failed", qUtf8Printable(program));
    }
    const double time = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    if (process.readAllStandardOutput().count('\n') < kClips) {
        qFatal("%s has left clips out", qUtf8Printable(program));
    }
    return time;
}

static double middle(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + kRounds / 2, times.end());
    return times[kRounds / 2];
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir room(application.arguments().value(1, QDir::tempPath()) +
                             u"/bench_check"_s);
    qputenv("ORVANTA_HOME", QFile::encodeName(room.filePath(u"home"_s))); // not the user's drives
    const QString lesson = makeLesson(room.filePath(u"lesson"_s));
    std::vector<double> check;
    std::vector<double> find;
    for (int round = 0; round < kRounds; ++round) { // in turn: a busy moment hits both
        check.push_back(seconds(QCoreApplication::applicationDirPath() + u"/orvanta"_s,
                                {u"--check"_s, lesson}));
        find.push_back(seconds(u"find"_s, {room.filePath(u"lesson/clips"_s), u"-type"_s, u"f"_s,
                                           u"-printf"_s, u"%s %p\\n"_s}));
    }
    const double ours = middle(std::move(check));
    const double theirs = middle(std::move(find));
    std::printf("orvanta --check of %d clips %.3f s (bound 1), find %.3f s: %.1f x\n", kClips, ours,
                theirs, ours / theirs);
    return ours <= kBoundSeconds ? 0 : 1;
}
