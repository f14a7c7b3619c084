// An engine with a scripted control, plain windows and settings of its own.
#pragma once

#include "core/ini.h"
#include "core/numbers.h"
#include "model/tree_lines.h"
#include "playback/playback_engine.h"
#include "tests/support/log_capture.h"
#include "tests/support/plain_playback_view.h"
#include "tests/support/plain_video_window.h"
#include "tests/support/scripted_media_control.h"
#include "tests/support/settings_folder.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <utility>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class EngineTest : public testing::Test
{
protected:
    EngineTest()
    {
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
        module.TypePattern = u"*.avi;*.mp3"_s;
        engine = std::make_unique<PlaybackEngine>(module, control, video);
        engine->attachView(view);
    }

    void option(const char* key, const QString& value = u"1"_s)
    {
        WriteIni(u"options"_s, QString::fromLatin1(key), value, module.IniPath);
    }

    void turnOn(std::initializer_list<const char*> options)
    {
        for (const char* key : options) {
            option(key);
        }
    }

    /// Hands these lines over as a later start of the program does.
    void queue(const QStringList& lines)
    {
        WriteIni(u"ftl"_s, u"wr"_s, u"0"_s, module.IniPath);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            WriteIni(u"ftl"_s, QString::number(i + 1), lines[i], module.IniPath);
        }
        WriteIni(u"ftl"_s, u"num"_s, QString::number(lines.size()), module.IniPath);
    }

    /// A file of this name beside the settings.
    QString file(const QString& name) { return home.write(name, "media"); }
    QString path(const QString& name) { return home.file(name); }

    /// A clip-list packet; each clip's text is its name, its file exists.
    Int16 addClips(const QStringList& names)
    {
        PlaylistEntry packet;
        packet.Title = QStringView(kPacketTitle).toString();
        for (const QString& name : names) {
            packet.Clips.push_back({.Time = {}, .Text = name, .Path = file(name + u".avi"_s)});
        }
        return addPacket(packet);
    }

    /// A clip-list packet whose files do not exist.
    Int16 addMissingClips(const QStringList& names)
    {
        PlaylistEntry packet;
        for (const QString& name : names) {
            packet.Clips.push_back({.Time = {}, .Text = name, .Path = path(name + u".gone"_s)});
        }
        return addPacket(packet);
    }

    /// A brake packet; brake n has the text "brake n".
    Int16 addBrakes(const QStringList& times, const QString& media = u"lesson.avi"_s)
    {
        PlaylistEntry packet;
        packet.HasBrakes = true;
        packet.MediaFile = file(media);
        for (const QString& time : times) {
            const qsizetype number = static_cast<qsizetype>(packet.Clips.size()) + 1;
            packet.Clips.push_back({.Time = time, .Text = u"brake %1"_s.arg(number), .Path = {}});
        }
        return addPacket(packet);
    }

    Int16 addPacket(PlaylistEntry packet)
    {
        packet.ClipCount = static_cast<qint64>(packet.Clips.size());
        module.playlist.Playlist.push_back(packet);
        module.playlist.PlaylistCount += 1;
        view.RebuildTree();
        return module.playlist.PlaylistCount;
    }

    void emptyPlaylist()
    {
        module.playlist.Playlist.clear();
        module.playlist.PlaylistCount = 0;
    }

    /// Adds a packet of these clips and plays its first.
    void playClips(const QStringList& names) { play(addClips(names), 1); }
    /// Adds a packet of brakes at these times and plays one.
    void playBrakes(const QStringList& times, Int16 brake = 1) { play(addBrakes(times), brake); }

    /// Starts and waits until it runs.
    void play(Int16 p, Int16 q)
    {
        engine->ListClick(p, q);
        waitUntilRunning();
    }

    void waitUntilRunning()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == control.Running; }));
    }

    /// The file in the player once it runs.
    QString runningFile()
    {
        waitUntilRunning();
        return control.FileName();
    }

    void waitUntilOpened()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !control.isOpening(); }));
    }

    /// The running clip comes to its end and the engine has served it.
    void endClip()
    {
        control.reachEnd();
        engine->tick();
        waitUntilOpened();
    }

    /// A tick whose brake wait sees the player move on from this position.
    void tickAt(double seconds)
    {
        control.playTo(seconds);
        QTimer::singleShot(0, &control, [this, seconds] {
            if (control.CurrentState() == control.Running) {
                control.playTo(seconds + 0.04);
            }
        });
        engine->tick();
    }

    /// Packet and clip that are current.
    [[nodiscard]] std::pair<int, int> place() const { return {packet(), clip()}; }
    static std::pair<int, int> at(int packet, int clip) { return {packet, clip}; }
    [[nodiscard]] int packet() const { return module.playlist.CurrentPacket.value(); }
    [[nodiscard]] int clip() const { return module.playlist.CurrentClip.value(); }
    [[nodiscard]] qsizetype countOf(const QString& call) const { return control.calls.count(call); }
    [[nodiscard]] qsizetype loads() const { return control.calls.filter(u"load /"_s).size(); }

    SettingsFolder home;
    Module1 module;
    ScriptedMediaControl control;
    PlainVideoWindow video{control};
    PlainPlaybackView view{module};
    std::unique_ptr<PlaybackEngine> engine;
};

} // namespace orvanta::test
