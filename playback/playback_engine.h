// The playback engine: the 300 ms tick, starting clips, advancing, brakes, the queue, closing.
#pragma once

#include "model/drop.h"
#include "playback/advance.h"
#include "playback/playback_operations.h"
#include "playback/playback_view.h"

#include <QObject>

#include <memory>

namespace orvanta {

class LessonControls;
class PracticeControls;

/// Drives the playlist through the control and the view. Interface thread only. Handlers below may
/// be entered while an outer one waits in the event loop; who waited leaves when it was superseded.
/// Each goes by one snapshot of the player, taken as it begins and again after a wait.
class PlaybackEngine : public QObject
{
    Q_OBJECT

public:
    PlaybackEngine(Module1& module, MediaControl& control, VideoWindow& video,
                   QObject* parent = nullptr);
    ~PlaybackEngine() override;

    /// The main window registers itself before the first tick.
    void attachView(PlaybackView& view);

    [[nodiscard]] PlaybackOperations& operations();
    [[nodiscard]] const TransportLooks& transport() const;
    /// Tempo, repeats and waiting.
    [[nodiscard]] PracticeControls& practice();
    /// Where the lesson is, and going on with one.
    [[nodiscard]] LessonControls& lesson();

    /// One playback tick (Form2_Timer1_Timer). Does not re-enter itself. Raises nothing.
    void tick();
    /// Nothing runs or is being opened: until something else happens in the program, a tick has
    /// nothing to do.
    [[nodiscard]] bool isQuiet() const;

    /// Makes clip (or brake) q of packet p current and plays it: a person asked for it, and gets no
    /// other one where it cannot be opened. Errors are passed over.
    void ListClick(Int16 p, Int16 q);

    /// The actions of the Play, Pause and Stop buttons.
    void pressPlay(); // Image5
    /// What a person means by Play: with nothing loaded the line under the list's cursor begins,
    /// else the first.
    void play();
    void pressPause(); // Image3
    void pressStop();  // Image4
    /// The Close button: hides the program ("nc") or ends it.
    void pressClose(); // Image13
    /// Ends the program whatever "nc" says (end of session, SIGTERM, tray).
    void closeProgram();

    /// What an opening (button, editor) does after its loader: cursor to 1, tree, "as".
    void playlistReplaced();

    /// The same where the loader failed: what it had read until then is open, and nothing starts.
    void playlistCutShort();

    /// Replaces the playlist with a file or folder and plays it: somebody asked for just that.
    void openAndPlay(const QString& path);

    /// What a drop does after its files were appended: with "as" it starts at the beginning when
    /// nothing has been started or a group came, and what was dropped when playback was over;
    /// without, it stops what plays.
    void playlistExtended(const DropResult& dropped);

    /// Position slider: the user moves it (value 0 to 100), lets go of it.
    void sliderMoved(double value);
    void sliderCommitted();
    /// Volume slider moved by the user: control, mirror, cache and settings.
    void volumeMoved(Int16 value);
    /// Places the volume at load from the settings; writes nothing. Returns the slider's place.
    Int16 applyStoredVolume();
    void balanceMoved(Int16 value);
    [[nodiscard]] Int16 storedBalance() const;

    /// A user's seek by key or bookmark, seconds: in a brake packet the brake there becomes
    /// current.
    void seekTo(double seconds);

    /// The text of the line that is on, under which its place is kept. Raises 9 without one.
    [[nodiscard]] QString playingText() const;
    /// Where the player is becomes the saved position of the current clip: in the settings, for the
    /// video window's "l", with the sign.
    void keepPosition();

    /// Plays the current clip or brake when nothing is loaded: a person asked for playing.
    void startCurrent();
    /// To the next or previous checked clip or brake, whatever the options say: a person asked.
    void nextChecked();
    void previousChecked();

    /// To the next (1) or previous (-1) line, checked or not: a person asked. During a wait the
    /// next one is what comes after it.
    void lineStep(int direction);
    /// The current line from its start.
    void lineAgain();

    [[nodiscard]] bool isClosing() const;

Q_SIGNALS:
    /// Another clip, brake or playlist is current.
    void cursorChanged();
    /// A person has begun another line, from whichever window.
    void lineChosen();
    /// The user changed the volume, here or in the video window.
    void volumeChanged();

private:
    class Private;
    std::unique_ptr<Private> m_private;
};

} // namespace orvanta
