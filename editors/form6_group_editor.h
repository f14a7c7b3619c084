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

#include "editors/editor_window.h"
#include "editors/member_list.h"
#include "playback/picture_reading.h"

class QGridLayout;
class QLabel;

namespace orvanta {

/// Works like the clip mode of the packet editor, with packets for clips and a picture for each.
class Form6 : public EditorWindow
{
    Q_OBJECT

public:
    explicit Form6(EditorServices& services, QWidget* parent = nullptr);

    LineBox* Text3 = nullptr;        // picture of the selected member
    QPushButton* Command7 = nullptr; // chooses a picture
    QLabel* Image1 = nullptr;        // the picture, small

protected:
    [[nodiscard]] ControlRows controls() override;

private:
    // Building: form6_layout.cpp
    void buildControls();
    void layOut();
    [[nodiscard]] QWidget* memberPart();
    [[nodiscard]] QGridLayout* fieldRows();
    [[nodiscard]] EntryLook lookOfMember(const QStringList& entries, int row) const;

    // Handlers: form6_group_editor.cpp
    void connectHandlers();
    void Form6_Form_Load();
    void Form6_File1_Click();
    void Form6_Text1_Change(const LineBox* box);
    void Form6_List1_Click();
    void Form6_Command7_Click();
    void Form6_Command3_Click();
    void Form6_Command4_Click();
    void Form6_Command1_Click();
    void writeMembers(const QString& target) const;
    [[nodiscard]] MemberFields shownFields() const;
    void fill(const MemberFields& fields);
    void showPicture();

    PictureReading m_pictureReading;
    std::vector<int> m_lenders; // for each member the one whose text and picture it is written with
    bool m_filling = false;     // while set, changes of the boxes do not rebuild the entry
};

} // namespace orvanta
