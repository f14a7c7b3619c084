// bench_ini: what reading and writing single values costs. Prints figures and ratios; exit status 1
// when one of them is out of bounds.
#include "core/ini.h"
#include "core/packet_file.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace orvanta;

using namespace Qt::StringLiterals;

constexpr int kLargestPacket = 32767;
constexpr double kMicro = 1e-3; // nanoseconds to microseconds
constexpr double kNano = 1e-9;  // nanoseconds to seconds

/// Processor time, in nanoseconds: what others do on the machine does not count.
static double processorTime()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

template <typename Action> static double nanoseconds(const Action& action)
{
    const double begin = processorTime();
    action();
    return processorTime() - begin;
}

static double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Prints one line; returns whether the figure is within its bound.
static bool report(const char* what, double figure, const char* unit, double bound)
{
    const bool holds = figure < bound;
    std::printf("%-52s %9.3f %-3s (bound %g) %s\n", what, figure, unit, bound,
                holds ? "ok" : "TOO MUCH");
    return holds;
}

static void writeClips(const QString& file, int count)
{
    WriteIni(u"main"_s, u"files"_s, QString::number(count), file);
    for (int i = 1; i <= count; ++i) {
        const QString number = QString::number(i);
        WriteIni(u"file"_s + number, u"path"_s, u"/media/clips/clip "_s + number + u".avi"_s, file);
        WriteIni(u"file"_s + number, u"text"_s, u"Clip number "_s + number, file);
    }
}

static double writingNs(const QString& folder, int count)
{
    const QString file = folder + u"/packet%1.vxl"_s.arg(count);
    QFile::remove(file);
    return nanoseconds([&] { writeClips(file, count); });
}

/// Median of single reads of settings that lie unchanged on the disk.
static double readingNs(const QString& folder)
{
    constexpr int kReads = 20000;
    const QString file = folder + u"/orvanta.ini"_s;
    for (const QString& key :
         {u"as"_s, u"agnc"_s, u"agnp"_s, u"acp"_s, u"ar"_s, u"si"_s, u"nc"_s}) {
        WriteIni(u"options"_s, key, u"1"_s, file);
    }
    std::vector<double> times;
    int on = 0;
    for (int i = 0; i < kReads; ++i) {
        times.push_back(
            nanoseconds([&] { on += ReadIni(u"options"_s, u"agnp"_s, file) == u"1" ? 1 : 0; }));
    }
    return on == kReads ? median(times) : 1e9;
}

static double packetReadingNs(const QString& folder)
{
    PlaylistEntry entry;
    const double time = nanoseconds(
        [&] { readPacketInto(entry, folder + u"/packet%1.vxl"_s.arg(kLargestPacket)); });
    return entry.Clips.back().Text.endsWith(u"32767") ? time : 1e9;
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    bool holds = report("ReadIni of an unchanged settings file, median",
                        readingNs(folder.path()) * kMicro, "us", 3);
    const double half = writingNs(folder.path(), kLargestPacket / 2);
    const double whole = writingNs(folder.path(), kLargestPacket);
    holds = report("writing 32767 clips through WriteIni", whole * kNano, "s", 1) && holds;
    holds = report("the same: time of 32767 / time of 16383", whole / half, "x", 2.2) && holds;
    holds =
        report("reading that packet", packetReadingNs(folder.path()) * kNano, "s", 0.1) && holds;
    return holds ? 0 : 1;
}
