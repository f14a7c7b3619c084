#include "companions/cdcreate/box_writer.h"
#include "companions/cdcreate/lesson_box.h"
#include "core/ini.h"
#include "core/packet_file.h"
#include "model/editing/drafts.h"
#include "model/loaders.h"
#include "model/settings.h"
#include "platform/process/hand_over_queue.h"
#include "tests/kill/scenario.h"

#include <QDirIterator>
#include <QFile>

namespace orvanta::kill {

using namespace Qt::StringLiterals;

static const QByteArray kSettingsFile =
    "; mine\r\n[options]\r\nas=1\r\nagnc=0\r\n[save]\r\nvolume=0\r\nbalance=50\r\n"
    "[ftl]\r\nwr=0\r\nnum=0\r\n[pos]\r\nClip=1.5\r\n";

static void put(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("a file cannot be written");
    }
}

static QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

/// Names and bytes of all files below, in the order of their names.
static QByteArray contentOf(const QString& folder)
{
    QStringList files;
    QDirIterator each(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        files.append(each.next());
    }
    files.sort();
    QByteArray content;
    for (const QString& file : files) {
        content += file.toUtf8() + '\n' + bytesOf(file) + '\n';
    }
    return content;
}

static QByteArray namesIn(const QString& folder, const QStringList& expected)
{
    QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.removeIf([&](const QString& name) { return expected.contains(name); });
    return names.join(u' ').toUtf8();
}

static Scenario settingsScenario(const QString& folder)
{
    const QString file = folder + u"/orvanta.ini"_s;
    return {.name = "settings",
            .prepare = [=] { put(file, kSettingsFile); },
            .steps = {[=] { WriteIni(u"save"_s, u"volume"_s, u"-1234.5"_s, file); },
                      [=] { WriteIni(u"pos"_s, u"Another"_s, u"7.25"_s, file); },
                      [=] { WriteIni(u"new"_s, u"key"_s, u"Текст"_s, file); },
                      [=] { WriteIni(u"save"_s, u"volume"_s, u"0"_s, file); }},
            .observe = [=] { return bytesOf(file); },
            .leftovers = [=] { return namesIn(folder, {u"orvanta.ini"_s}); }};
}

static Scenario optionsScenario(const QString& folder)
{
    const QString file = folder + u"/orvanta.ini"_s;
    return {.name = "options",
            .prepare = [=] { put(file, kSettingsFile); },
            .steps = {[=] {
                Settings(file).storeOptions({{Option::StartPlaying, false},
                                             {Option::NextClip, true},
                                             {Option::TrayIcon, true}});
            }},
            .observe = [=] { return bytesOf(file); },
            .leftovers = [=] { return namesIn(folder, {u"orvanta.ini"_s}); }};
}

static Scenario documentScenario(const QString& folder)
{
    const QString file = folder + u"/lesson.vxl"_s;
    const auto entries = [](int count) {
        QStringList lines;
        for (int i = 1; i <= count; ++i) {
            lines.append(u"/clips/%1.mp4{}Строка %1"_s.arg(i));
        }
        return lines;
    };
    return {
        .name = "document",
        .prepare = [=] { put(file, "[main]\r\nfiles=1\r\n[file1]\r\npath=/a.mp4\r\ntext=A\r\n"); },
        .steps = {[=] { writeClipListPacket(file, entries(40)); },
                  [=] { writeClipListPacket(file, entries(3)); }},
        .observe = [=] { return bytesOf(file); },
        .leftovers = [=] { return namesIn(folder, {u"lesson.vxl"_s}); }};
}

static Scenario handOverScenario(const QString& folder)
{
    const QString file = folder + u"/orvanta.ini"_s;
    return {.name = "hand-over",
            .prepare = [=] { put(file, kSettingsFile); },
            .steps = {[=] {
                          (void)HandOverQueue(file).append({u"/a.vxl"_s, u"/b.vxl"_s});
                      },
                      [=] { (void)HandOverQueue(file).append({u"/c.vxl"_s}); }},
            .observe = [=] { return bytesOf(file); },
            .leftovers =
                [=] {
                    return namesIn(folder, {u"orvanta.ini"_s, u"queue.lock"_s});
                },
            .afterwards = [=] { HandOverQueue(file).drain([](const QStringList&) {}); },
            .settled =
                [=] {
                    return (ReadIni(u"ftl"_s, u"num"_s, file) + ReadIni(u"ftl"_s, u"wr"_s, file))
                        .toUtf8();
                }};
}

/// The mark that the queue is busy is no state to be in for long: the next one who drains takes it
/// away, which the end of every try shows.
static Scenario drainScenario(const QString& folder)
{
    const QString file = folder + u"/orvanta.ini"_s;
    return {.name = "drain",
            .prepare =
                [=] {
                    put(file, kSettingsFile);
                    (void)HandOverQueue(file).append({u"/a.vxl"_s, u"/b.vxl"_s});
                },
            .steps = {[=] { WriteIni(u"ftl"_s, u"wr"_s, u"1"_s, file); },
                      [=] { HandOverQueue(file).drain([](const QStringList&) {}); }},
            .observe = [=] { return bytesOf(file); },
            .leftovers =
                [=] {
                    return namesIn(folder, {u"orvanta.ini"_s, u"queue.lock"_s});
                }};
}

static PlaylistState lessonOf(int clips)
{
    PlaylistState playlist;
    playlist.Document = u"/lessons/lesson.vxl"_s;
    playlist.Playlist.emplace_back();
    playlist.PlaylistCount = 1;
    for (int i = 1; i <= clips; ++i) {
        appendClip(playlist, 1, u"/clips/%1.mp4"_s.arg(i), u"Line %1"_s.arg(i));
    }
    return playlist;
}

static QByteArray draftIn(const QString& folder)
{
    const auto packets = Drafts(folder).packets(lessonOf(0).Document, {});
    QByteArray lines;
    for (const PlaylistEntry& packet : packets.value_or(std::vector<PlaylistEntry>())) {
        for (const ClipEntry& clip : packet.Clips) {
            lines += clip.Path.toUtf8() + ' ' + clip.Text.toUtf8() + '\n';
        }
    }
    return packets ? "draft\n" + lines : QByteArray("none");
}

static Scenario draftScenario(const QString& folder)
{
    return {.name = "draft",
            .prepare = [=] { QDir(folder + u"/drafts"_s).removeRecursively(); },
            .steps = {[=] { (void)Drafts(folder).keep(lessonOf(5), {}); },
                      [=] { (void)Drafts(folder).keep(lessonOf(30), {}); }},
            .observe = [=] { return draftIn(folder); },
            .leftovers = [] { return QByteArray(); }};
}

static Scenario boxScenario(const QString& folder)
{
    const QString lesson = folder + u"/lesson"_s;
    const QString box = folder + u"/out/box"_s;
    const auto make = [=] {
        BoxWork work;
        writeBox(gatherLesson({lesson + u"/p.vxl"_s}, work), {.target = box, .replaces = true},
                 work);
    };
    return {.name = "box",
            .prepare =
                [=] {
                    QDir(folder + u"/out"_s).removeRecursively();
                    QDir().mkpath(folder + u"/out"_s);
                    put(lesson + u"/a.avi"_s, QByteArray(300'001, 'a'));
                    put(lesson + u"/b.avi"_s, QByteArray(17, 'b'));
                    put(lesson + u"/p.vxl"_s,
                        "[main]\nfiles=2\n[file1]\npath=a.avi\n[file2]\npath=b.avi\n");
                },
            .steps = {make},
            .observe = [=] { return contentOf(lesson) + '\n' + contentOf(box); },
            .leftovers = [] { return QByteArray(); }};
}

std::vector<Scenario> scenarios(const QString& folder)
{
    std::vector<Scenario> all;
    for (const auto& make : {settingsScenario, optionsScenario, documentScenario, handOverScenario,
                             drainScenario, draftScenario, boxScenario}) {
        const QString own = folder + u'/' + QString::number(all.size());
        QDir().mkpath(own);
        all.push_back(make(own));
    }
    return all;
}

} // namespace orvanta::kill
