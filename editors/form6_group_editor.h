// Form6, the group editor.
//
//   FolderTreeview1, File1   the packet files to choose from
//   List1     the members                    Text1, Text2, Text3   path, text, picture of the
//   Command7  chooses a picture                     selected member
//   Image1    the picture, small
//   Command8  add all packet files           Command5  remove    Command6  remove all
//   Command9  move up                        Command10 move down
//   Command3  load a group                   Command4  save the group
//   Command1  create button                  Command2  cancel
#pragma once

#include "editors/editor_services.h"
#include "editors/member_list.h"
#include "editors/window_parts.h"

#include <QDialog>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;

namespace orvanta {

class EntryListView;
class FileListBox;
class FolderTree;

/// Works like the clip mode of the packet editor, with packets for clips and a picture for each.
/// Shows no message ever. Esc closes it only while there is nothing to lose.
class Form6 : public QDialog
{
    Q_OBJECT

public:
    explicit Form6(EditorServices& services, QWidget* parent = nullptr);

    FolderTree* FolderTreeview1 = nullptr; // chooses the folder of the packets
    FileListBox* File1 = nullptr;          // a click adds a member
    EntryListView* List1 = nullptr;        // the members, path{}text{}picture
    LineBox* Text1 = nullptr;              // packet path of the selected member
    LineBox* Text2 = nullptr;              // its text
    LineBox* Text3 = nullptr;              // its picture
    QPushButton* Command7 = nullptr;       // chooses a picture
    QLabel* Image1 = nullptr;              // the picture, small
    QPushButton* Command3 = nullptr;       // loads a group
    QPushButton* Command4 = nullptr;       // saves the group
    QPushButton* Command5 = nullptr;       // removes the selected member
    QPushButton* Command6 = nullptr;       // removes all members
    QPushButton* Command8 = nullptr;       // adds all packet files of the folder
    QPushButton* Command9 = nullptr;       // moves the selected member up
    QPushButton* Command10 = nullptr;      // moves the selected member down
    QPushButton* Command1 = nullptr;       // creates the group
    QPushButton* Command2 = nullptr;       // closes without result

    void reject() override;
    /// Every way of closing stores the folder of File1.
    void done(int result) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // Building: form6_layout.cpp
    void buildControls();
    void buildButtons();
    void nameControls();
    void layOut();
    [[nodiscard]] QWidget* memberPart();
    [[nodiscard]] QBoxLayout* editRow();
    [[nodiscard]] QGridLayout* fieldRows();
    [[nodiscard]] QBoxLayout* buttonRow();
    void orderTabs();
    [[nodiscard]] QPushButton* button(QStringView control);

    // Handlers: form6_group_editor.cpp
    void connectHandlers();
    void connectListHandlers();
    template <typename Sender, typename Signal, typename Handler>
    void on(Sender* sender, Signal signal, Handler handler)
    {
        connect(sender, signal, this, m_services.boundary(std::move(handler)));
    }
    void Form6_Form_Load();
    void Form6_FolderTreeview1_FolderClick(const QString& folder);
    void Form6_File1_Click();
    void Form6_Text1_Change();
    void Form6_List1_Click();
    void Form6_Command7_Click();
    void Form6_Command8_Click();
    void Form6_Command3_Click();
    void Form6_Command4_Click();
    void Form6_Command1_Click();
    [[nodiscard]] MemberFields shownFields() const;
    void fill(const MemberFields& fields);
    void showPicture();

    EditorServices& m_services;
    WindowTexts m_texts;
    bool m_filling = false; // while set, changes of the boxes do not rebuild the entry
};

} // namespace orvanta
