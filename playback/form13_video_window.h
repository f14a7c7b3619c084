// Form13, the video window: the player control, its events and the mirror fields.
//
//   ActiveMovie1   the running picture
//   Image1         still picture for clips without one of their own: the packet's, else the cover
//   PictureMenu    what can be asked of the player
//   TracksMenu     sound and subtitles, by a button of Bar
//   LessonText     the current line's text, over the picture
//   Sign           what a key has changed, for two seconds
//   Bar            position, times and buttons, while the mouse moves over the picture
//   Timer1         every 30 s: nudges the mouse cursor while a lesson runs
#pragma once

#include "core/error_boundary.h"
#include "platform/media/media_control.h"
#include "platform/media/video_surface.h"
#include "playback/bar_ports.h"
#include "playback/command_menu.h"
#include "playback/current_line.h"
#include "playback/keyboard.h"
#include "playback/picture_reading.h"
#include "playback/video_layout.h"
#include "playback/video_window.h"

#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace orvanta {

/// Everything the video window is given. All of it outlives the window.
struct Form13Services
{
    MediaControl& control;
    HandlerBoundary boundary;
    std::function<void(bool)> keepAwake;   // a lesson begins to run, or has stood still for a while
    std::function<bool(Command)> carryOut; // commands not its own; says whether it served one
    VideoWindowKeys::Seek seek;
    std::function<QWidget*()> mainWindow; // beside which it opens; null: at the top left
    // Of the text over the picture, in the settings.
    std::function<TextLevel()> textLevel = [] { return TextLevel::Off; };
    std::function<void(TextLevel)> setTextLevel = [](TextLevel) {};
    // Of the menu.
    std::function<TextLanguage()> language = [] { return TextLanguage::English; };
    std::function<bool()> hasEntries = [] { return false; }; // something is in the playlist
    std::function<Practice()> practice = [] { return Practice(); };
    QString menuSheet = {}; // its style sheet
    BarPorts bar = {};
    TrackControls* tracks = nullptr; // sound and subtitles; null: no choice of them
};

class OverlayPicture;
class PictureBar;
class TrackControls;
class TrackMenus;

inline constexpr QSize kSizeWithoutPicture(30, 1000); // twips: the control before a file is open

/// Its logical place (Left, Width, Height in twips) follows the program; the native window is
/// hidden while the logical one is out of sight, but not between two clips that both have a
/// picture. It appears without taking the focus. Interface thread only.
class Form13 : public QWidget, public VideoWindow, public FullScreenControl
{
    Q_OBJECT

public:
    explicit Form13(Form13Services services);
    ~Form13() override;

    VideoSurface* ActiveMovie1; // the running picture
    QLabel* Image1;             // still picture for clips without one of their own
    CommandMenu* PictureMenu;   // what can be asked of the player
    QMenu* TracksMenu;          // sound and subtitles, by a button of Bar
    OverlayPicture* LessonText; // the current line's text, over the picture
    PictureBar* Bar;            // position, times and buttons, while the mouse moves over it
    OverlayPicture* Sign;       // what a key has changed, at the upper left for two seconds
    QTimer Timer1;              // 30 s: the mouse nudge

    [[nodiscard]] VideoMirror& mirror() override { return m_mirror; }
    void prepareForMedia() override;
    void moveOutOfSight() override;
    void setStillPicture(const QString& file) override { m_stillFile = file; }
    void showWindow(bool show) override;

    /// The picture of the clip that is in sight now, without the bars beside it; null without one.
    [[nodiscard]] QImage currentFrame() const;
    /// The full-screen mode stays on from clip to clip; the window fills the screen while a picture
    /// is in sight, a clip's own or a still one, with the mouse cursor hidden.
    [[nodiscard]] bool isFullScreen() const override { return m_fullScreen; }
    void setFullScreen(bool on) override;

    /// The line that is on; its text lies over the picture when the settings say so.
    void setLine(const LessonLine& line);
    /// Off, text, large text and round; kept in the settings. Sound alone has a window of its own
    /// while there is text.
    void nextTextLevel();

    /// Two seconds of a few words at the upper left, while a picture is in sight. lead: before
    /// them, in the accent's colour.
    void showSign(const QString& text, const QString& lead = {});
    /// Signs of what a person has changed, here or elsewhere.
    void showVolume();
    /// What the bar shows of the lesson and of the practice has changed.
    void refreshBar();
    /// The lesson waits, real seconds; 0 until a key.
    void showWait(double seconds);
    void showWaitOver();
    /// A person has chosen another line.
    void showLineSign();
    void showBookmark();

    /// What this window's keys do; the main window hands some of its own to them.
    [[nodiscard]] VideoWindowKeys& keys() { return m_keys; }

    /// The window's logical left edge, twips; -100000 when out of sight.
    [[nodiscard]] int Left() const { return m_left; }
    /// The window's logical size, twips. Its frame is counted as 50 by 200 around the picture.
    [[nodiscard]] int Width() const { return m_size.width(); }
    [[nodiscard]] int Height() const { return m_size.height(); }
    /// Whether the user has given the window a size; it is kept from then on.
    [[nodiscard]] bool isSizedByUser() const { return m_sizedByUser; }

Q_SIGNALS:
    void fullScreenChanged(bool on);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void buildControls();
    void connectHandlers();
    void Form13_ActiveMovie1_PositionEvent();
    void Form13_ActiveMovie1_PositionChange(double oldSeconds, double newSeconds);
    void Form13_ActiveMovie1_OpenComplete(QSize picture);
    void Form13_ActiveMovie1_OpenFailed();
    void Form13_ActiveMovie1_StateChange(int oldState, int newState);
    void Form13_ActiveMovie1_DblClick();
    void Form13_ActiveMovie1_Escape();
    void Form13_Form_KeyPress(QChar typed);
    void Form13_Timer1_Timer();

    void showClipPicture(QSize picture);
    void Form13_ActiveMovie1_CoverRead(const QImage& cover);
    void forgetCover();
    [[nodiscard]] QImage coverOfClip();
    void showStillPicture();
    void showStill(const QImage& picture);
    void bringIntoSight(QSize contents);
    void giveSizeOfContents();
    void giveSize(QSize contents);
    [[nodiscard]] QPoint placeBeforePush() const;
    [[nodiscard]] QSize sizeOfContents() const;
    void keepAwakeWhile(bool running);
    void letSleep();
    void hideUnlessOpening();
    void noteComingBack();
    void layOutControls();
    void scaleStillPicture();
    bool carryOut(Command command);
    void choose(Command command);
    void openMenu(QPoint place);
    void hidePointerOnWholeScreen();
    [[nodiscard]] CommandFacts commandFacts() const;
    [[nodiscard]] bool hasTextGround() const;
    [[nodiscard]] double textBand() const;
    [[nodiscard]] QSize sizeOfTextGround() const;
    [[nodiscard]] QRect placeOfStill() const;
    [[nodiscard]] int shownHeight() const;
    void paintGround();
    void showLessonText();
    void placeLessonText();
    void keepSubtitlesClear();
    /// What is done by hand here, and the sign of what it has changed.
    void doByHand(const std::function<void()>& action);
    void showChanges(int stateBefore, Int16 volumeBefore, const LessonLine& lineBefore);
    [[nodiscard]] QString text(QStringView name) const;
    void buildBar();
    void connectBarButtons();
    void buildTracksMenu();
    void openTracksMenu();
    [[nodiscard]] bool isBarShown() const;
    void showBar();
    void hideBar();
    void hideBarUnlessInUse();
    void showBarTime();
    void applyFullScreen();
    void fillScreen();
    void takeKeyboard();
    void giveKeyboardBack();
    void askForMainWindow(int times);
    void leaveScreen();
    [[nodiscard]] bool isFillingScreen() const;
    [[nodiscard]] QRect room() const;
    [[nodiscard]] QSize frameSize() const;

    Form13Services m_services;
    MediaControl& m_control;
    VideoMirror m_mirror;
    VideoWindowKeys m_keys;
    TrackMenus* m_trackMenus = nullptr; // of TracksMenu
    QTimer m_signTime;
    QTimer m_barTime;
    QPoint m_restingPointer; // on the screen, where it was last when it had really moved
    int m_wheel = 0;         // eighths of a degree, not yet a step
    QTimer m_rest;           // since the clip stands still
    QString m_stillFile;
    QImage m_still;
    PictureReading m_stillReading;
    QImage m_cover;            // of the clip that is open, once it is read
    bool m_coverAsked = false; // of that clip
    bool m_coverIsComing = false;
    int m_left = kOutOfSight; // twips
    QSize m_controlSize;      // twips
    QSize m_size;             // twips
    QElapsedTimer
        m_shown; // since the window has come, until it gave the keyboard back, or was used
    bool m_asksForMainWindow = false;
    bool m_shownByProgram = false;
    bool m_sizedByUser = false;
    bool m_fullScreen = false;
    bool m_hasPlaceBefore = false; // it stood somewhere before it filled the screen
    bool m_comesBack = false;      // from full screen, to that place
    LessonLine m_line;
    TextLevel m_textLevel = TextLevel::Off; // as the settings said last
    QSize m_contents;        // pixels, of the clip or the still picture that is in sight
    QSize m_givenSize;       // pixels, the size that the program asked for last
    QPoint m_pushedFrom;     // where the window stood before a large clip had no room there
    QPoint m_pushedTo;       // and where the program has put it
    QSize m_givenSizeBefore; // its predecessor may still come back from the window system
};

} // namespace orvanta
