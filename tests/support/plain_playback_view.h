// A main window without widgets: remembers what the engine showed.
#pragma once

#include "model/tree_lines.h"
#include "playback/playback_view.h"

#include <functional>
#include <vector>

namespace orvanta::test {

class PlainPlaybackView : public PlaybackView
{
public:
    explicit PlainPlaybackView(const Module1& module)
        : m_module(module)
    {}

    bool windowNormal = true;
    bool sliderHeld = false;
    bool modalWindowOpen = false;
    QString currentTime;
    QString clipLength;
    QString findText;
    QString clipText;
    int slider = -1;
    int volume = -1;
    TransportLooks looks;
    std::vector<TreeLine> lines;
    std::vector<bool> checked; // by line
    int listIndex = -1;
    int timer2Line = -1;
    int timer3Enabled = 0;
    int shown = 0;
    int hidden = 0;
    int broughtToFront = 0;
    int bookmarkSigns = 0;
    int unloaded = 0;
    std::vector<int> packetsAfterBusyWork; // how many were open after each
    int rebuilt = 0;
    PlayingPlace playing;
    std::function<void()> onUnload;

    [[nodiscard]] bool isWindowNormal() const override { return windowNormal; }
    [[nodiscard]] bool isSliderHeld() const override { return sliderHeld; }
    void setCurrentTime(const QString& text) override { currentTime = text; }
    void setClipLength(const QString& text) override { clipLength = text; }
    void setFindText(const QString& text) override { findText = text; }
    void setClipText(const QString& text) override { clipText = text; }
    void moveSlider(Int16 percent) override { slider = percent.value(); }
    void setVolumeSlider(Int16 value) override { volume = value.value(); }
    void showTransport(const TransportLooks& shownLooks) override { looks = shownLooks; }

    void showPlaying(const PlayingPlace& place) override { playing = place; }

    void RebuildTree() override
    {
        ++rebuilt;
        lines = treeLines(m_module.playlist);
        checked.assign(lines.size(), true);
    }
    void clearList() override
    {
        lines.clear();
        checked.clear();
    }
    [[nodiscard]] int headerLineOf(Int16 p) const override { return headerLine(lines, p); }
    [[nodiscard]] int lineCount() const override { return static_cast<int>(lines.size()); }
    void setListIndex(int line) override { listIndex = line; }
    [[nodiscard]] TreePlace cursorPlace() const override
    {
        return listIndex < 0 ? TreePlace{} : placeOfLine(lines, listIndex);
    }
    [[nodiscard]] bool isLineChecked(int line) const override
    {
        return checked.at(static_cast<std::size_t>(line));
    }
    void checkLine(int line) override { checked.at(static_cast<std::size_t>(line)) = true; }

    void showMainWindow() override { ++shown; }
    void hideMainWindow() override { ++hidden; }
    void enableTimer2(int line) override { timer2Line = line; }
    void enableTimer3() override { ++timer3Enabled; }
    void bringMainWindowToFront() override { ++broughtToFront; }
    void showBookmarkSign() override { ++bookmarkSigns; }
    [[nodiscard]] bool isModalWindowOpen() const override { return modalWindowOpen; }
    void cancelModalWindows() override { modalWindowOpen = false; }
    void runBusy(const std::function<void()>& work) override
    {
        work();
        packetsAfterBusyWork.push_back(m_module.playlist.PlaylistCount.value());
    }
    void unloadAll() override
    {
        ++unloaded;
        if (onUnload) {
            onUnload();
        }
    }

private:
    const Module1& m_module;
};

} // namespace orvanta::test
