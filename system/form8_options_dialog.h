// Form8, the Options dialog: three pages, of which one shows.
//
//   Image3    playing options            Image4   program options     Image5   file options
//   Check1    start after opening        Check2   next clip           Check3   next packet
//   Check5    replay                     Check4   close after files from outside
//   Check6    tray icon                  Check7   keep the program running
//   Check9    start with the session     Check8   read ahead from drive A
//   List1     the file types, a mark on those that this program opens
//   Text1     a type to add              Command1 adds it
//   Command2  removes the current type
//   Image6    the icon of the current type
//   Command3  chooses another one        Command4 back to the standard icon
//   Image2    OK                         Image1   Cancel
#pragma once

#include "core/error_boundary.h"
#include "model/module1.h"
#include "model/pickers.h"
#include "playback/control_rows.h"
#include "system/file_type_registration.h"

#include <QDialog>

#include <array>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace orvanta {

class IconPreview;
class OptionBox;
class TypeList;

/// Everything the dialog is given. All of it outlives the dialog.
struct OptionsServices
{
    Module1& module;
    Registry& registry;
    Pickers& pickers;
    HandlerBoundary boundary;
    /// What is registered has an effect: the program is not shut off from the desktop's settings.
    bool reachesDesktop = true;
};

/// Constructing it is its load procedure. Types and icons are stored at once; the nine options and
/// the registration of the types by OK alone.
class Form8 : public QDialog
{
    Q_OBJECT

public:
    explicit Form8(OptionsServices& services);
    ~Form8() override;

    QToolButton* Image3 = nullptr; // shows page 0, playing options
    QToolButton* Image4 = nullptr; // shows page 1, program options
    QToolButton* Image5 = nullptr; // shows page 2, file options
    QPushButton* Image2 = nullptr; // OK
    QPushButton* Image1 = nullptr; // Cancel

    OptionBox* Check1 = nullptr; // "as": starts playing after opening
    OptionBox* Check2 = nullptr; // "agnc": goes on to the next clip
    OptionBox* Check3 = nullptr; // "agnp": goes on to the next packet
    OptionBox* Check4 = nullptr; // "acp": closes the program after files of the shell
    OptionBox* Check5 = nullptr; // "ar": plays again from the start
    OptionBox* Check6 = nullptr; // "si": icon in the tray
    OptionBox* Check7 = nullptr; // "nc": closing the window keeps the program
    OptionBox* Check8 = nullptr; // "r": copies clips of drive A first
    OptionBox* Check9 = nullptr; // "ws": starts with the session; only while Check7 is on

    TypeList* List1 = nullptr;       // packets, groups, then the stored types
    QLineEdit* Text1 = nullptr;      // a type to add, without the dot
    QPushButton* Command1 = nullptr; // adds it
    QPushButton* Command2 = nullptr; // removes the current row
    QPushButton* Command3 = nullptr; // chooses an icon for the current row
    QPushButton* Command4 = nullptr; // the standard icon for the current row
    IconPreview* Image6 = nullptr;   // the icon of the current row

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Building: form8_layout.cpp
    void buildControls();
    void buildPageButtons();
    void buildTypeControls();
    [[nodiscard]] ControlRows controls();
    void layOut();
    [[nodiscard]] QWidget* pageButtons();
    [[nodiscard]] QWidget* pageOfBoxes(int page);
    [[nodiscard]] QWidget* pageOfTypes();
    [[nodiscard]] QBoxLayout* typeColumn();
    [[nodiscard]] QBoxLayout* iconColumn();
    [[nodiscard]] QBoxLayout* closingButtons();
    void hideRegistration();
    void showTexts(TextLanguage language);
    void connectHandlers();

    // Handlers: form8_options_dialog.cpp
    void Form8_Form_Load();
    void Form8_Image3_Click();
    void Form8_Image4_Click();
    void Form8_Image5_Click();
    void Form8_Image2_Click();
    void Form8_Image1_Click();
    void Form8_Check7_Click();
    void Form8_List1_Click();
    void Form8_Command1_Click();
    void Form8_Command2_Click();
    void Form8_Command3_Click();
    void Form8_Command4_Click();

    void loadOptions();
    void storeOptions() const;
    void fillTypes();
    void markRegisteredTypes();
    void registerTypes();
    void registerWithDesktop();
    void showPage(int page);
    [[nodiscard]] QString currentType() const;
    void useIcon(const QString& icoFile);

    OptionsServices& m_services;
    FileTypeRegistration m_registration;
    QLabel* m_listLabel = nullptr; // of List1
    QLabel* m_boxLabel = nullptr;  // of Text1
    QStackedWidget* m_pages = nullptr;
    int m_page = 0; // the visible one
};

/// One option: its check box, the box's name, the stored option, the page, and whether
/// it depends on the one before it, below which it then stands a step further in.
struct OptionRow
{
    OptionBox* Form8::*box;
    QStringView name;
    Option key;
    int page; // counted from 0
    bool isDependent = false;
};

/// In the order in which they stand on their pages.
inline constexpr std::array kOptionRows = {
    OptionRow{&Form8::Check1, u"Check1", Option::StartPlaying, 0},
    OptionRow{&Form8::Check2, u"Check2", Option::NextClip, 0},
    OptionRow{&Form8::Check3, u"Check3", Option::NextPacket, 0},
    OptionRow{&Form8::Check5, u"Check5", Option::Replay, 0},
    OptionRow{&Form8::Check4, u"Check4", Option::CloseWhenOver, 0},
    OptionRow{&Form8::Check6, u"Check6", Option::TrayIcon, 1},
    OptionRow{&Form8::Check7, u"Check7", Option::KeepRunning, 1},
    OptionRow{&Form8::Check9, u"Check9", Option::StartWithSession, 1, true},
    OptionRow{&Form8::Check8, u"Check8", Option::CopyFromDriveA, 1},
};

/// Shows the dialog modally in front of a window. Returns whether it was closed by OK.
bool showOptions(OptionsServices& services, QWidget* window);

} // namespace orvanta
