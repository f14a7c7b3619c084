// Form5, the packet editor.
//
//   Option1   clip mode                      Option2   brake mode
//   Frame1    the controls of clip mode      Frame5    the controls of brake mode, over them
//   FolderTreeview1, File1   the clips to choose from
//   List1     the clips                      Text1, Text2   path and text of the selected clip
//   Command8  add all files                  Command5  remove    Command6  remove all
//   Command9  move up                        Command10 move down
//   Command3  load a packet                  Command4  save the packet
//   Command1  create button of clip mode
//   FolderTreeview2, File2   the brake clips to choose from
//   Text3     the brake clip                 ActiveMovie1   its preview
//   PreviewButton   halts the preview and lets it go on
//   Slider1   the preview's position         Label1, Label2   position and length
//   List2     the brakes                     Text4     text of the selected brake
//   Command15 add a brake at the slider      Command11 remove the selected brake
//   Command7  load brakes                    Command16 save the brake packet, over Command4
//   Command12 create button of brake mode, over Command1
//   Command2  cancel
#pragma once

#include "editors/editor_window.h"

#include <optional>
#include <vector>

class QGroupBox;
class QLabel;
class QRadioButton;

namespace orvanta {

class PreviewPane;
class TimeSlider;

/// Its whole state is in its controls. What clip mode shares with the group editor is the base's.
class Form5 : public EditorWindow
{
    Q_OBJECT

public:
    explicit Form5(EditorServices& services, QWidget* parent = nullptr);
    ~Form5() override;

    QRadioButton* Option1 = nullptr;       // clip mode
    QRadioButton* Option2 = nullptr;       // brake mode
    QGroupBox* Frame1 = nullptr;           // the controls of clip mode
    QGroupBox* Frame5 = nullptr;           // the controls of brake mode
    FolderTree* FolderTreeview2 = nullptr; // chooses the folder of the brake clip
    FileListBox* File2 = nullptr;          // a click opens the brake clip
    LineBox* Text3 = nullptr;              // full path of the brake clip
    PreviewPane* ActiveMovie1 = nullptr;   // the preview
    QPushButton* PreviewButton = nullptr;  // halts the preview and lets it go on
    TimeSlider* Slider1 = nullptr;         // position, seconds
    QLabel* Label1 = nullptr;              // the slider's value
    QLabel* Label2 = nullptr;              // the clip's length
    EntryListView* List2 = nullptr;        // the brakes, time{}text
    LineBox* Text4 = nullptr;              // text of the selected brake
    QPushButton* Command15 = nullptr;      // adds a brake at the slider's position
    QPushButton* Command11 = nullptr;      // removes the selected brake
    QPushButton* Command7 = nullptr;       // loads a brake packet
    QPushButton* Command16 = nullptr;      // saves the brake packet
    QPushButton* Command12 = nullptr;      // creates the brake packet

    /// Whether the preview paused a player that had been running.
    [[nodiscard]] bool hasPausedPlayer() const { return m_hasPausedPlayer; }

protected:
    [[nodiscard]] ControlRows controls() override;
    [[nodiscard]] bool isEmpty() const override;
    [[nodiscard]] EntryListView* shownList() const override;
    /// Space that no control of brake mode takes for itself halts the preview and lets it go on.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Building: form5_layout.cpp
    void buildControls();
    void buildBrakeControls();
    void buildButtons();
    void layOut();
    void layOutClipMode();
    void layOutBrakeMode();
    [[nodiscard]] QWidget* clipListPart();
    [[nodiscard]] QWidget* previewPart();
    [[nodiscard]] QWidget* brakeListPart();

    // Loading and closing: form5_packet_editor.cpp
    void connectHandlers();
    void connectClipMode();
    void connectBrakeMode();
    void Form5_Form_Load();
    void Form5_Option1_Click();
    void Form5_Option2_Click();

    // Clip mode: form5_clip_mode.cpp
    void Form5_File1_Click();
    void Form5_Text1_Change(const LineBox* box);
    void Form5_List1_Click();
    void Form5_Command3_Click();
    void Form5_Command4_Click();
    void Form5_Command1_Click();
    void writeClips(const QString& target) const;

    // Brake mode: form5_brake_mode.cpp
    void Form5_FolderTreeview2_FolderClick(const QString& folder);
    void Form5_File2_Click();
    void Form5_ActiveMovie1_OpenComplete(double durationSeconds);
    void Form5_Slider1_Change(double seconds, bool held);
    void followPreview(double seconds);
    void showPreviewState();
    void Form5_Text4_Change();
    void Form5_Text4_Return();
    void Form5_Text3_Change();
    void Form5_List2_Click();
    void Form5_Command15_Click();
    void Form5_Command7_Click();
    void Form5_Command16_Click();
    void Form5_Command12_Click();
    void writeBrakes(const QString& target) const;
    void showBrake(const MarkerSplit& brake);
    void showRestoredBrakes();
    void openPreview(const QString& pathText, const QString& packetFolder);
    void showDuration(double seconds);
    void showPosition();
    void takeBrakeTimes();
    void markPassedBrake();
    void pausePlayer();

    std::vector<std::optional<double>> m_brakeTimes; // seconds, in the order of List2
    // The slider's place as the user or a brake has set it, seconds. The slider itself goes on with
    // the preview, and a brake whose text is typed meanwhile must not go with it.
    double m_chosenSeconds = 0;
    std::optional<double> m_previewSeconds; // where the preview is; none before it has moved
    QString m_openedClip; // clicked in File2 or named by a loaded packet last; empty before
    bool m_hasPausedPlayer = false;
};

} // namespace orvanta
