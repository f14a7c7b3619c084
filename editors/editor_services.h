// The editors as the main window sees them.
#pragma once

#include "core/error_boundary.h"
#include "model/module1.h"
#include "model/pickers.h"
#include "platform/media/media_control.h"

#include <QSize>

#include <functional>
#include <memory>

class QWidget;

namespace orvanta {

/// Everything the editors are given. All of it outlives them.
struct EditorServices
{
    Module1& module;
    Pickers& pickers;
    HandlerBoundary boundary;
    /// A media control of its own for the preview. May raise 53.
    std::function<std::unique_ptr<MediaControl>()> makePreview;
    /// The player's volume, hundredths of a decibel.
    std::function<int()> playerVolume;
    /// Pauses the player before the preview runs; says whether it had been running.
    std::function<bool()> pausePlayer;
    /// Called after the editor has closed with nothing to open, when pausePlayer had said yes.
    std::function<void()> resumePlayer;

    // Sizes of the windows, remembered for the run; empty before the first use.
    QSize packetEditorSize = {};
    QSize groupEditorSize = {};
};

/// What an editor leaves behind.
struct EditorOutcome
{
    /// The temporary packet or group, to be opened and then deleted; empty when there is nothing to
    /// open (EditorDone is not set, or the file is not there).
    QString fileToOpen;
};

/// Shows the packet editor (Form5) modally and returns when it has closed.
EditorOutcome showPacketEditor(EditorServices& services, QWidget* parent);
/// Shows the group editor (Form6) modally and returns when it has closed.
EditorOutcome showGroupEditor(EditorServices& services, QWidget* parent);

} // namespace orvanta
