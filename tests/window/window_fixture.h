// The main window with a real engine, a scripted control and settings of its own.
#pragma once

#include "core/ini.h"
#include "tests/support/log_capture.h"
#include "tests/support/plain_screen.h"
#include "tests/support/plain_video_window.h"
#include "tests/support/scripted_media_control.h"
#include "tests/support/scripted_pickers.h"
#include "tests/support/settings_folder.h"
#include "window/clip_line.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"
#include "window/skin.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class Form2Test : public testing::Test
{
protected:
    Form2Test()
    {
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
        module.TypePattern = u"*.avi;*.mp3"_s;
        module.Language = 1;
    }

    ~Form2Test() override { window.reset(); }

    /// Loads the window and shows it. The tick's timer rests: a test ticks when it wants.
    Form2& show(Int16 language = 1)
    {
        load(language);
        window->showMainWindow();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        return *window;
    }

    /// Shows the window with the playlist in its list.
    void showList()
    {
        show();
        window->RebuildTree();
    }

    Form2& load(Int16 language = 1)
    {
        module.Language = language;
        engine = std::make_unique<PlaybackEngine>(module, control, video);
        window = std::make_unique<Form2>(Form2Services{
            .module = module,
            .engine = *engine,
            .pickers = pickers,
            .boundary = HandlerBoundary([this](const RuntimeError& e) { reported = e.number(); }),
            .unloadSplash = [this] { ++splashUnloads; },
            .unloadOtherForms = [this] { othersUnloaded = true; },
            .videoWindow = [] { return nullptr; },
            .showBookmarkSign = [] {},
            .showOptions = [] {},
            .videoKeys = videoKeys,
            .nextTextLevel = [this] { ++textLevels; },
            .showPacketEditor = [this] { return packetEditor(); },
            .showGroupEditor = [this] { return groupEditor(); },
            .showAbout = [this] { ++aboutRequests; },
            .askFolder = [this] { return chosenFolder; },
            .frame = [this] { return frame; },
        });
        timerRanAfterLoad = window->Timer1.isActive();
        window->Timer1.stop();
        control.calls.clear();
        return *window;
    }

    void option(const char* key, const QString& value = u"1"_s) const
    {
        WriteIni(u"options"_s, QString::fromLatin1(key), value, module.IniPath);
    }

    void setting(const char* section, const char* key, const QString& value) const
    {
        WriteIni(QString::fromLatin1(section), QString::fromLatin1(key), value, module.IniPath);
    }

    /// A clip-list packet; each clip's file exists and has the clip's text as its name.
    void addClips(const QString& title, const QStringList& texts)
    {
        PlaylistEntry packet;
        packet.Title = title;
        for (const QString& text : texts) {
            const QString path = home.write(text + u".avi"_s, "media");
            packet.Clips.push_back({.Time = {}, .Text = text, .Path = path});
        }
        add(packet);
    }

    void addBrakes(const QString& title, const QStringList& times)
    {
        PlaylistEntry packet;
        packet.Title = title;
        packet.HasBrakes = true;
        packet.MediaFile = home.write(u"lesson.avi"_s, "media");
        for (const QString& time : times) {
            packet.Clips.push_back({.Time = time, .Text = u"brake at "_s + time, .Path = {}});
        }
        add(packet);
    }

    /// Three packets: "first" (one, two), "second" (three, four), and "empty".
    void addThreePackets()
    {
        addClips(u"first"_s, {u"one"_s, u"two"_s});
        addClips(u"second"_s, {u"three"_s, u"four"_s});
        addClips(u"empty"_s, {});
    }

    /// A packet file of clips that exist.
    [[nodiscard]] QString writePacket(const QString& name, const QStringList& texts) const
    {
        QStringList paths;
        for (const QString& text : texts) {
            paths.append(home.write(text + u".avi"_s, "media"));
        }
        return writeDocument(name, paths, texts);
    }

    /// A packet or group file of these paths and texts.
    [[nodiscard]] QString writeDocument(const QString& name, const QStringList& paths,
                                        const QStringList& texts) const
    {
        const QString file = home.file(name);
        WriteIni(u"main"_s, u"files"_s, QString::number(paths.size()), file);
        for (qsizetype i = 0; i < paths.size(); ++i) {
            const QString section = u"file%1"_s.arg(i + 1);
            WriteIni(section, u"path"_s, paths[i], file);
            WriteIni(section, u"text"_s, texts[i], file);
        }
        return file;
    }

    /// Where a row's text is, in the list's own pixels.
    [[nodiscard]] QPoint textOfRow(int row) const
    {
        const QRect line = window->List1->visualRect(window->List1->model()->index(row, 0));
        return {line.left() + 60, line.center().y()};
    }

    [[nodiscard]] QPoint boxOfRow(int row) const
    {
        const QRect line = window->List1->visualRect(window->List1->model()->index(row, 0));
        return window->List1->boxArea(line).center();
    }

    void clickRow(int row) const { clickListAt(textOfRow(row)); }

    void clickListAt(QPoint place) const
    {
        QTest::mouseClick(window->List1->viewport(), Qt::LeftButton, {}, place);
    }

    void doubleClickRow(int row) const
    {
        clickRow(row);
        QTest::mouseDClick(window->List1->viewport(), Qt::LeftButton, {}, textOfRow(row));
    }

    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    /// Starts a clip and waits until it runs and the engine knows.
    [[nodiscard]] bool start(Int16 packet, Int16 clip)
    {
        engine->ListClick(packet, clip);
        return QTest::qWaitFor([this] {
            engine->tick();
            return module.playback.CachedState == MediaControl::Running;
        });
    }

    [[nodiscard]] QStringList listedTexts() const
    {
        QStringList texts;
        for (const TreeLine& line : window->List1->lines()) {
            texts.append(textWithPrefix(line));
        }
        return texts;
    }

    SettingsFolder home;
    Module1 module;
    ScriptedMediaControl control;
    PlainVideoWindow video{control};
    PlainScreen screen;
    VideoWindowKeys videoKeys{control, video.mirror(), screen,
                              [this](double seconds) { control.setCurrentPosition(seconds); }};
    ScriptedPickers pickers{module};
    std::unique_ptr<PlaybackEngine> engine;
    std::unique_ptr<Form2> window;
    // What the editors do, and the file that they leave to be opened.
    std::function<QString()> packetEditor = [] { return QString(); };
    std::function<QString()> groupEditor = [] { return QString(); };
    std::optional<ErrorNumber> reported;
    int splashUnloads = 0;
    int textLevels = 0;
    int aboutRequests = 0;
    QImage frame;         // of the clip that plays
    QString chosenFolder; // where missing clips are to be looked for
    bool othersUnloaded = false;
    bool timerRanAfterLoad = false;

private:
    void add(PlaylistEntry& packet)
    {
        packet.ClipCount = static_cast<qint64>(packet.Clips.size());
        module.playlist.Playlist.push_back(packet);
        module.playlist.PlaylistCount += 1;
    }
};

} // namespace orvanta::test
