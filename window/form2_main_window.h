// Form2, the main window: a skin without a frame of the desktop's.
//
//   Image8    open clips                    Image14  open a packet or a group
//   Image9    New: the menu create          Image10  Tools: the menu tools
//   Image11   Help: the menu help           Image12  minimise     Image13  close
//   Text1     what to find                  Image2   find
//   Text2     the current clip's text       List1    the playlist
//   StartPage the lessons that were on last, in List1's place while nothing is open
//   Label1    the current time              Label2   the clip's length
//   Slider1   the position                  Slider2  the volume   Slider3  the balance
//   Image5    Play                          Image3   Pause        Image4   Stop
//   Image15   Play's other picture          Image17  Pause's other picture
//   Image20   holds a picture while two are exchanged
//   PracticeButton  opens Panel: tempo, repeats, waiting     Chips  what of it is not as usual
//   EditButton  edits what is open: the row Editing, a box in the list, Notice
//   Timer1    the playback tick             Timer2   marks a line afterwards
//   Timer3    brings the window to the front
//   create    cp packet editor, cg group editor
//   tools     op options, cdc CD creation, ai the add-ins (entries add)
//   help      doc documentation, tu tutorial, ab about
//   ListMenu  what can be done with a line of the playlist, and with the player
#pragma once

#include "core/error_boundary.h"
#include "model/pickers.h"
#include "playback/command_state.h"
#include "playback/control_rows.h"
#include "playback/keyboard.h"
#include "playback/playback_engine.h"
#include "playback/tick_rest.h"

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QWindow;

namespace orvanta {

class ClipLine;
class EditingMode;
class EditingRow;
class Announcement;
class EditNotice;
class CommandMenu;
class MissingClips;
class PictureHolder;
class PlaylistList;
class PracticeChips;
class PracticePanel;
class SilenceRow;
class SkinButton;
class SkinSlider;
class StartPageList;
struct RecentLesson;
class TrackControls;
class WaveformStrip;

/// Everything the main window is given. All of it outlives the window.
struct Form2Services
{
    Module1& module;
    PlaybackEngine& engine;
    Pickers& pickers;
    HandlerBoundary boundary;
    std::function<void()> unloadSplash;          // Form1 goes at the first activation
    std::function<void()> unloadOtherForms;      // tray form, then video window, then the program
    std::function<QWindow*()> videoWindow;       // stays right behind this one; null: not there yet
    std::function<void()> showBookmarkSign;      // Form4
    std::function<void()> showOptions;           // Form8, modally
    VideoWindowKeys& videoKeys;                  // full screen
    std::function<void()> nextTextLevel = [] {}; // of the text over the picture
    // The editors, modally. Each returns the temporary file to open; empty for none.
    std::function<QString()> showPacketEditor;   // Form5
    std::function<QString()> showGroupEditor;    // Form6
    std::function<void()> showAbout;             // Form9
    TrackControls* tracks = nullptr;             // sound and subtitles; null: no choice of them
    std::function<void()> closingBegins = [] {}; // the program ends, whatever it still waits for
    std::function<QString()> askFolder = {};     // modally, for missing clips; empty: by a dialog
    std::function<QImage()> frame = [] { return QImage(); }; // of the clip's picture, now
};

/// Constructing it is its load procedure: texts, add-ins, volume and balance; a step of it that
/// fails is passed over. Interface thread only.
class Form2 : public QWidget, public PlaybackView
{
    Q_OBJECT

public:
    explicit Form2(Form2Services services, QWidget* parent = nullptr);
    ~Form2() override;

    SkinButton* Image8 = nullptr;  // opens clips
    SkinButton* Image14 = nullptr; // opens a packet or a group
    SkinButton* Image9 = nullptr;  // New: drops down the menu create
    SkinButton* Image10 = nullptr; // Tools: drops down the menu tools
    SkinButton* Image11 = nullptr; // Help: drops down the menu help
    SkinButton* Image12 = nullptr; // minimises the window
    SkinButton* Image13 = nullptr; // closes the window or the program
    SkinButton* Image5 = nullptr;  // Play
    SkinButton* Image3 = nullptr;  // Pause
    SkinButton* Image4 = nullptr;  // Stop
    SkinButton* Image2 = nullptr;  // finds the text of Text1

    PictureHolder* Image15 = nullptr; // Play's other picture; never shown
    PictureHolder* Image17 = nullptr; // Pause's other picture; never shown
    PictureHolder* Image20 = nullptr; // holds a picture while two are exchanged; never shown

    QLineEdit* Text1 = nullptr;         // what to find
    ClipLine* Text2 = nullptr;          // the current clip's text
    PlaylistList* List1 = nullptr;      // the playlist as a check list
    StartPageList* StartPage = nullptr; // where you stopped; List1 while something is open
    QLabel* Label1 = nullptr;           // current time, seconds
    QLabel* Label2 = nullptr;           // length of the clip, seconds
    SkinSlider* Slider1 = nullptr;      // position, percent of the clip or of the brake's span
    SkinSlider* Slider2 = nullptr;      // volume, 0 to 100
    SkinSlider* Slider3 = nullptr;      // balance, 0 to 100, centre 50

    SkinButton* PracticeButton = nullptr; // opens the panel of practice
    PracticePanel* Panel = nullptr;       // tempo, repeats, waiting
    PracticeChips* Chips = nullptr;       // what is practised, at the clip's text

    SkinButton* EditButton = nullptr; // edits what is open
    EditingRow* Editing = nullptr;    // the buttons of editing
    EditNotice* Notice = nullptr;     // what became of changes, what is missing
    WaveformStrip* Strip = nullptr;   // the clip's sound with its brakes
    SilenceRow* Silence = nullptr;    // looks for marks in the clip's silences

    QMenu* create = nullptr;   // New
    QAction* cp = nullptr;     // packet editor
    QAction* cg = nullptr;     // group editor
    QMenu* tools = nullptr;    // Tools
    QAction* op = nullptr;     // options
    QAction* cdc = nullptr;    // CD creation program
    QMenu* ai = nullptr;       // add-ins
    std::vector<QAction*> add; // one entry per add-in, counted from 0; there is always one
    QMenu* help = nullptr;     // Help
    QAction* doc = nullptr;    // documentation
    QAction* tu = nullptr;     // tutorial program
    QAction* ab = nullptr;     // about

    CommandMenu* ListMenu = nullptr; // List1's: what can be done with a line and the player

    QTimer Timer1; // 300 ms, at rest 3 s: the playback tick; runs as long as the window exists
    QTimer Timer2; // 100 ms, one shot: marks the line that enableTimer2 was given
    QTimer Timer3; // 200 ms, one shot: brings the window to the front

    /// What of the playlist cannot be found.
    [[nodiscard]] MissingClips& missingClips() const { return *m_missingClips; }

    /// Takes it out of the icon and brings it to the front, in the name of the launch that asks.
    void raiseFor(const QString& activationToken);
    /// What the video window hands on: opening, finding, the handbook. False for other commands.
    bool carryOutForVideoWindow(Command command);

    // PlaybackView
    [[nodiscard]] bool isWindowNormal() const override;
    [[nodiscard]] bool isSliderHeld() const override { return m_sliderHeld; }
    void setCurrentTime(const QString& text) override;
    void setClipLength(const QString& text) override;
    void setFindText(const QString& text) override;
    void setClipText(const QString& text) override;
    void moveSlider(Int16 percent) override;
    void setVolumeSlider(Int16 value) override;
    void showTransport(const TransportLooks& looks) override;
    void showPlaying(const PlayingPlace& place) override;
    void RebuildTree() override;
    void clearList() override;
    [[nodiscard]] int headerLineOf(Int16 p) const override;
    [[nodiscard]] int lineCount() const override;
    void setListIndex(int line) override;
    [[nodiscard]] TreePlace cursorPlace() const override;
    [[nodiscard]] bool isLineChecked(int line) const override;
    void checkLine(int line) override;
    void showMainWindow() override;
    void hideMainWindow() override;
    void enableTimer2(int line) override;
    void enableTimer3() override;
    void bringMainWindowToFront() override;
    void showBookmarkSign() override;
    [[nodiscard]] bool isModalWindowOpen() const override;
    void cancelModalWindows() override;
    void runBusy(const std::function<void()>& work) override;
    void unloadAll() override;

Q_SIGNALS:
    /// The window manager asks the window to close.
    void closeAsked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// The handbook's key, in every window of the program, and the find box's own.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Building: form2_controls.cpp, form2_layout.cpp
    void buildControls();
    void buildButtons();
    void buildBoxes();
    void buildSliders();
    void buildMenus();
    [[nodiscard]] ControlRows controls();
    void layOut();
    [[nodiscard]] QBoxLayout* titleRow();
    [[nodiscard]] QBoxLayout* commandRow();
    [[nodiscard]] QBoxLayout* positionRow();
    [[nodiscard]] QBoxLayout* transportRow();
    void connectHandlers();
    void connectMenus();
    void connectPractice();

    // Loading: form2_main_window.cpp
    void Form2_Form_Load();
    void buildAddInsMenu(TextLanguage language);

    // Handlers: form2_handlers.cpp
    void Form2_Form_Activate();
    void Form2_Form_Paint();
    void Form2_Image8_Click();
    void Form2_Image14_Click();
    void Form2_Image9_Click();
    void Form2_Image10_Click();
    void Form2_Image11_Click();
    void Form2_Image12_Click();
    void Form2_Image13_Click();
    void Form2_Image5_Click();
    void Form2_Image3_Click();
    void Form2_Image4_Click();
    void Form2_Image2_Click();
    void Form2_Text1_CtrlReturn();
    void Form2_List1_Click(int line);
    void Form2_List1_DblClick();
    void Form2_List1_MouseMove(int y);
    void Form2_Slider1_Change(double value);
    void Form2_Slider1_Commit();
    void Form2_Slider1_End();
    void Form2_Slider2_Change(double value);
    void Form2_Slider3_Change(double value);
    void Form2_Timer1_Timer();
    void Form2_Timer2_Timer();
    void Form2_Timer3_Timer();
    void Form2_op_Click();

    // Handlers: form2_keys.cpp
    bool Form2_Form_KeyPress(QChar typed);
    void Form2_List1_OLEDragDrop(const QStringList& files);

    // Handlers: form2_practice.cpp
    void Form2_PracticeButton_Click();
    void Form2_Panel_Chosen(const Practice& practice);
    void showPractice();
    // Handlers: form2_start_page.cpp
    void connectStartPage();
    void showStartPage();
    void Form2_StartPage_Chosen(const RecentLesson& lesson);
    void Form2_StartPage_TakeOff(const QString& path);
    void Form2_StartPage_Forget();
    void continueLast();
    void continueLesson(const RecentLesson& lesson);
    // Handlers: form2_list_menu.cpp
    void Form2_List1_Menu(QPoint place);
    [[nodiscard]] CommandFacts commandFacts() const;

    // Handlers: form2_editing.cpp
    void buildEditing();
    void connectEditing();
    void connectMissingClips();
    void showEditing(bool on);

    // Handlers: form2_create.cpp
    void Form2_cp_Click();
    void Form2_cg_Click();

    // Handlers: form2_companions.cpp
    void Form2_cdc_Click();
    void Form2_add_Click(int entry);
    void Form2_doc_Click();
    void Form2_tu_Click();
    void Form2_ab_Click();

    [[nodiscard]] bool find(const QString& wanted);
    // form2_zoom.cpp
    void zoomTo(int percent);
    [[nodiscard]] int zoom() const;
    void applyZoom();

    void showFound(bool found);
    void sayPlaying(const PlayingPlace& place);
    /// To assistive technology; a list that has the keyboard says its current line by itself.
    void sayLine(int line);
    void carryOut(Command command);
    void askForMenu();
    void toggleAlwaysOnTop();
    void sayNothingStaysOnTop();
    /// left: where the lesson goes on; null: it begins.
    void open(const std::function<void()>& load, const RecentLesson* left = nullptr);
    void openDocument(const QString& path, void (*load)(PlaylistState&, const QString&),
                      const RecentLesson* left = nullptr);
    void openFromEditor(const std::function<QString()>& showEditor,
                        void (*load)(PlaylistState&, const QString&));
    void openPacketOrGroup(const QString& path);
    void dropDown(QMenu* menu, SkinButton* button);
    void noteWindowState();
    void noteInput(const QObject& watched, const QEvent& event);
    [[nodiscard]] Settings platformSettings() const;
    /// For the next start, when the size is another than at the beginning.
    void keepSize();

    Form2Services m_services;
    std::unique_ptr<TickRest> m_tickRest; // of Timer1
    MainWindowKeys m_keys;
    EditingMode* m_editing = nullptr;
    MissingClips* m_missingClips = nullptr;
    QWidget* m_commands = nullptr;          // opening, menus, finding: Editing takes its place
    QWidget* m_stripRoom = nullptr;         // of Strip
    QLabel* m_document = nullptr;           // what is edited, beside the title
    QLabel* m_caption = nullptr;            // the window's title
    QWidget* m_surface = nullptr;           // everything inside the edge that resizes
    Announcement* m_announcement = nullptr; // says what begins to play
    PlayingPlace m_announced;               // the place that it has named last
    TransportLooks m_looks;                 // as the buttons show them
    QString m_lastFind;                     // text of the last search
    int m_lastFound = 0;                    // row of the last match
    QTimer m_missed;       // while it runs, the find box says that nothing was found
    int m_lineToMark = -1; // for Timer2
    QSize m_keptSize;      // logical pixels, as it is stored or was at the beginning
    bool m_sliderHeld = false;
    bool m_minimiseRequested = false; // Wayland never tells that a window is minimised, or is not
    bool m_roundedCorners = false;
    bool m_unloading = false;
    bool m_alwaysOnTop = false;
    bool m_saidOnTop = false; // that nothing stays on top here
};

} // namespace orvanta
