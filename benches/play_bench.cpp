// Plays one 720p25 clip with the program's own control and surface, and with an ordinary player's
// X11 output, turn by turn on one display; prints CPU and memory as ratios.
//
//   bench_play [CLIP] [ROUNDS]
#include "platform/media/media_library.h"
#include "platform/media/video_surface.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace Qt::StringLiterals;

constexpr double kCpuLimit = 1.05;
constexpr double kMemoryLimit = 1.15;

struct Cost
{
    double cpuSeconds = 0;
    double peakMegabytes = 0;
    bool ended = false;
};

/// The program's side: plays the clip once in a window of its size, then ends.
int playOnce(int argc, char** argv, const QString& clip)
{
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const auto player = orvanta::makeMediaControl({{"ao", "null"}});
    orvanta::MediaControl& control = *player;
    orvanta::VideoSurface surface(control.picture());
    QObject::connect(&control, &orvanta::MediaControl::openComplete, [&](QSize picture) {
        surface.resize(picture);
        surface.show();
        control.Run();
    });
    QObject::connect(&control, &orvanta::MediaControl::openFailed, [] { QApplication::exit(1); });
    QObject::connect(&control, &orvanta::MediaControl::positionChange,
                     [] { QApplication::exit(0); });
    control.setFileName(clip);
    return QApplication::exec();
}

/// Runs a command to its end and takes its cost from the system's own account.
Cost measure(const QStringList& command)
{
    std::vector<QByteArray> words;
    std::transform(command.begin(), command.end(), std::back_inserter(words),
                   [](const QString& word) { return word.toLocal8Bit(); });
    std::vector<char*> arguments;
    for (QByteArray& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage = {};
    wait4(child, &status, 0, &usage);
    const auto seconds = [](timeval time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1024,
            WIFEXITED(status) && WEXITSTATUS(status) == 0};
}

bool makeClip(const QString& clip)
{
    return QFileInfo::exists(clip) ||
           QProcess::execute(u"ffmpeg"_s, {u"-hide_banner"_s,
                                           u"-loglevel"_s,
                                           u"error"_s,
                                           u"-f"_s,
                                           u"lavfi"_s,
                                           u"-i"_s,
                                           u"testsrc2=size=1280x720:rate=25"_s,
                                           u"-f"_s,
                                           u"lavfi"_s,
                                           u"-i"_s,
                                           u"sine=440"_s,
                                           u"-t"_s,
                                           u"10"_s,
                                           u"-c:v"_s,
                                           u"libx264"_s,
                                           u"-pix_fmt"_s,
                                           u"yuv420p"_s,
                                           u"-b:v"_s,
                                           u"3M"_s,
                                           u"-c:a"_s,
                                           u"aac"_s,
                                           clip}) == 0;
}

/// A display of its own when there is none; returns null when that cannot be had.
bool startDisplay(QProcess& server)
{
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        return true;
    }
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1920x1080x24"_s,
                             u"-nolisten"_s, u"tcp"_s});
    if (!server.waitForReadyRead(10000)) {
        return false;
    }
    qputenv("DISPLAY", ":" + server.readLine().trimmed());
    return true;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int compare(const QString& self, const QString& clip, int rounds)
{
    QTextStream out(stdout);
    const QStringList ours = {self, u"--play"_s, clip};
    const QStringList theirs = {u"mpv"_s,      u"--no-config"_s, u"--no-terminal"_s,
                                u"--vo=x11"_s, u"--ao=null"_s,   clip};
    std::vector<double> cpu;
    std::vector<double> memory;
    for (int round = 0; round < rounds; ++round) {
        const Cost own = measure(ours);
        const Cost other = measure(theirs);
        if (!own.ended || !other.ended) {
            out << "a player did not end the clip\n";
            return 1;
        }
        out << u"round %1: CPU %2 s and %3 s, memory %4 MB and %5 MB\n"_s.arg(round + 1)
                   .arg(own.cpuSeconds, 0, 'f', 2)
                   .arg(other.cpuSeconds, 0, 'f', 2)
                   .arg(own.peakMegabytes, 0, 'f', 1)
                   .arg(other.peakMegabytes, 0, 'f', 1);
        out.flush();
        cpu.push_back(own.cpuSeconds / other.cpuSeconds);
        memory.push_back(own.peakMegabytes / other.peakMegabytes);
    }
    out << u"CPU ratio %1 (at most %2), memory ratio %3 (at most %4)\n"_s
               .arg(median(cpu), 0, 'f', 3)
               .arg(kCpuLimit)
               .arg(median(memory), 0, 'f', 3)
               .arg(kMemoryLimit);
    return median(cpu) <= kCpuLimit && median(memory) <= kMemoryLimit ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--play") == 0) {
        return playOnce(argc, argv, QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath());
    }
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString clip = arguments.value(
        1, QFileInfo(QCoreApplication::applicationDirPath() + u"/bench-720p25.mp4"_s)
               .absoluteFilePath());
    QProcess server;
    if (!makeClip(clip) || !startDisplay(server)) {
        QTextStream(stderr) << "this measurement needs ffmpeg and Xvfb\n";
        return 2;
    }
    const int result = compare(QCoreApplication::applicationFilePath(), clip,
                               std::max(1, arguments.value(2, u"3"_s).toInt()));
    server.terminate();
    server.waitForFinished();
    return result;
}
