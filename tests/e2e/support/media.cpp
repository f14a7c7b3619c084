#include "tests/e2e/support/media.h"

#include "tests/e2e/support/owned_process.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QRandomGenerator>

#include <functional>
#include <map>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

static QString folder()
{
    QString path = QStringLiteral(ORVANTA_BUILD_DIR "/test-media-e2e");
    QDir().mkpath(path);
    return path;
}

static QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

static bool write(const QString& target, const QByteArray& content)
{
    QFile file(target);
    return !content.isEmpty() && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

static bool runFfmpeg(const QString& target, const QString& arguments)
{
    OwnedProcess ffmpeg;
    ffmpeg.setStandardErrorFile(target + u".log"_s);
    const QStringList quiet = {u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s};
    ffmpeg.start(u"ffmpeg"_s, quiet + arguments.split(u' ') + QStringList(target));
    ffmpeg.waitForFinished(-1);
    return ffmpeg.exitStatus() == QProcess::NormalExit && ffmpeg.exitCode() == 0;
}

static const QString kPicture = u"-f lavfi -i testsrc2=size=160x120:rate=25:duration=%1"_s;
static const QString kTone = u"-f lavfi -i sine=frequency=440:sample_rate=44100:duration=%1"_s;

using Maker = std::function<bool(const QString& target)>;

static Maker video(const QString& seconds, const QString& codecs)
{
    return [=](const QString& target) {
        return runFfmpeg(target, kPicture.arg(seconds) + u' ' + kTone.arg(seconds) + u' ' + codecs);
    };
}

static Maker picture(const QString& seconds, const QString& codecs)
{
    return [=](const QString& target) {
        return runFfmpeg(target, kPicture.arg(seconds) + u' ' + codecs);
    };
}

/// A picture of this size ("1280x720"), without sound.
static Maker pictureOf(const QString& size, const QString& seconds)
{
    return [=](const QString& target) {
        return runFfmpeg(target,
                         u"-f lavfi -i testsrc2=size=%1:rate=10:duration=%2 "_s.arg(size, seconds) +
                             u"-c:v libx264 -preset ultrafast -pix_fmt yuv420p"_s);
    };
}

/// A picture of one colour, without sound.
static Maker red(const QString& seconds)
{
    return [=](const QString& target) {
        return runFfmpeg(target, u"-f lavfi -i color=red:size=160x120:rate=25:duration="_s +
                                     seconds + u" -c:v libx264 -pix_fmt yuv420p"_s);
    };
}

/// A second of one colour, of this size.
static Maker plain(const QString& colour, const QString& size)
{
    return [=](const QString& target) {
        return runFfmpeg(target,
                         u"-f lavfi -i color=%1:size=%2:rate=25:duration=1 "_s.arg(colour, size) +
                             kTone.arg(1) + u" -c:v libx264 -pix_fmt yuv420p -c:a aac"_s);
    };
}

/// Black, with a sound in English and one in Russian.
static bool twoLanguages(const QString& target)
{
    return runFfmpeg(target,
                     u"-f lavfi -i color=black:size=320x240:rate=10:duration=300 "_s +
                         kTone.arg(300) + u' ' + kTone.arg(300) +
                         u" -map 0 -map 1 -map 2 -metadata:s:a:0 language=eng -metadata:s:a:1 "
                         "language=rus -c:v libx264 -pix_fmt yuv420p -c:a aac"_s);
}

static Maker sound(const QString& seconds, const QString& codecs)
{
    return [=](const QString& target) {
        return runFfmpeg(target, kTone.arg(seconds) + u' ' + codecs);
    };
}

/// The first six tenths of another file.
static Maker cut(const QString& whole)
{
    return [=](const QString& target) {
        const QByteArray content = contentOf(media(whole));
        return write(target, content.left(content.size() * 6 / 10));
    };
}

static QByteArray littleEndian(quint32 value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(static_cast<char>(value >> shift & 0xffU));
    }
    return bytes;
}

/// A second of sound whose header names another length. seconds: what the header says.
static Maker soundThatSays(double seconds)
{
    return [=](const QString& target) {
        constexpr int kBytesPerSecond = 44100 * 2;
        constexpr int kSizeOffset = 40; // of the data in a plain header of 44 bytes
        const QString whole = target + u".whole.wav"_s;
        const bool made = sound(u"2"_s, u"-ac 1 -c:a pcm_s16le -bitexact"_s)(whole);
        QByteArray content = contentOf(whole);
        content.truncate(44 + 2 * kBytesPerSecond);
        content.replace(kSizeOffset, 4,
                        littleEndian(static_cast<quint32>(seconds * kBytesPerSecond)));
        return made && write(target, content);
    };
}

static bool noise(const QString& target)
{
    constexpr qsizetype kWords = 5000;
    QRandomGenerator generator(1); // the same noise every time
    QList<quint32> words(kWords);
    generator.fillRange(words.data(), words.size());
    return write(target, QByteArray(reinterpret_cast<const char*>(words.constData()), kWords * 4));
}

static const std::map<QString, Maker>& makers()
{
    static const QString kMp4 = u"-c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac "
                                "-movflags +faststart -shortest"_s;
    static const QString kAvi = u"-c:v mpeg4 -q:v 5 -c:a libmp3lame -shortest"_s;
    static const std::map<QString, Maker> kMakers = {
        {u"video2.avi"_s, video(u"2"_s, kAvi)},
        {u"video2.mp4"_s, video(u"2"_s, kMp4)},
        {u"video2.mkv"_s, video(u"2"_s, kMp4)},
        {u"video2.webm"_s,
         video(u"2"_s, u"-c:v libvpx -deadline realtime -b:v 300k -c:a libvorbis -shortest"_s)},
        {u"video3.mp4"_s, video(u"2.9"_s, kMp4)},
        {u"video15.mp4"_s, video(u"15"_s, kMp4)},
        {u"brakes6.mp4"_s, video(u"6"_s, kMp4)},
        {u"video200.mp4"_s, video(u"200"_s, kMp4)},
        {u"film180.mp4"_s, video(u"180"_s, kMp4)},
        {u"silent2.mp4"_s, picture(u"2"_s, kMp4)},
        {u"large20.mp4"_s, pictureOf(u"1280x720"_s, u"20"_s)},
        {u"sound2.mp3"_s, sound(u"2"_s, u"-c:a libmp3lame"_s)},
        {u"sound2.ogg"_s, sound(u"2"_s, u"-c:a libvorbis"_s)},
        {u"sound2.wav"_s, sound(u"2"_s, u"-c:a pcm_s16le"_s)},
        {u"languages300.mkv"_s, twoLanguages},
        {u"red20.mp4"_s, red(u"20"_s)},
        {u"red1.mp4"_s, plain(u"red"_s, u"320x240"_s)},
        {u"green1.mp4"_s, plain(u"lime"_s, u"480x270"_s)},
        {u"blue1.mp4"_s, plain(u"blue"_s, u"640x360"_s)},
        {u"tone20.wav"_s, sound(u"20"_s, u"-af volume=12dB -c:a pcm_s16le"_s)},
        {u"tone.wav"_s, sound(u"1.5"_s, u"-af volume=12dB -c:a pcm_s16le"_s)},
        {u"tone.flac"_s, sound(u"1.5"_s, u"-af volume=12dB -c:a flac"_s)},
        {u"tone.mp3"_s, sound(u"1.5"_s, u"-af volume=12dB -c:a libmp3lame"_s)},
        {u"tone.mp4"_s, video(u"1.5"_s, u"-af volume=12dB "_s + kMp4)},
        {u"short.avi"_s, video(u"0.3"_s, kAvi)},
        {u"short.mp4"_s, video(u"0.3"_s, kMp4)},
        {u"short.mp3"_s, sound(u"0.3"_s, u"-c:a libmp3lame"_s)},
        {u"short.wav"_s, sound(u"0.3"_s, u"-c:a pcm_s16le"_s)},
        {u"says_more.wav"_s, soundThatSays(9)},
        {u"says_less.wav"_s, soundThatSays(0.5)},
        {u"variable.mp3"_s,
         sound(u"2"_s, u"-c:a libmp3lame -q:a 9 -write_xing 0 -id3v2_version 0"_s)},
        {u"cut.mp4"_s, cut(u"video2.mp4"_s)},
        {u"cut.mkv"_s, cut(u"video2.mkv"_s)},
        {u"cut.mp3"_s, cut(u"sound2.mp3"_s)},
        {u"cut.avi"_s, cut(u"video2.avi"_s)},
        {u"noise.avi"_s, noise},
    };
    return kMakers;
}

/// Made under another name of the same ending and moved into place whole.
static bool make(const QString& name, const Maker& maker)
{
    const QString unfinished = folder() + u"/unfinished-"_s + name;
    return maker(unfinished) && QFile::rename(unfinished, folder() + u'/' + name);
}

QString media(const QString& name)
{
    QString path = folder() + u'/' + name;
    const auto maker = makers().find(name);
    if (maker == makers().end()) {
        return {};
    }
    QLockFile lock(path + u".lock"_s); // test programs run side by side
    if (!lock.lock() || (!QFileInfo::exists(path) && !make(name, maker->second))) {
        return {};
    }
    return path;
}

} // namespace orvanta::e2e
