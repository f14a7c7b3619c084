// What the packet editor and the group editor have in common.
#pragma once

#include "editors/editor_services.h"
#include "editors/entry_list_view.h"
#include "editors/window_parts.h"

#include <QDialog>

#include <functional>
#include <vector>

class QBoxLayout;
class QPushButton;

namespace orvanta {

class FileListBox;
class FolderTree;

/// A chooser of files, a list that is made of them, and the commands around the list. Shows no
/// message ever. Esc closes it only while there is nothing to lose; Cancel and the window manager
/// close it in any state.
class EditorWindow : public QDialog
{
    Q_OBJECT

public:
    FolderTree* FolderTreeview1 = nullptr; // chooses the folder
    FileListBox* File1 = nullptr;          // its files; a click adds one to the list
    EntryListView* List1 = nullptr;        // the entries of the document
    LineBox* Text1 = nullptr;              // path of the selected entry
    LineBox* Text2 = nullptr;              // text of the selected entry
    QPushButton* Command1 = nullptr;       // creates the document
    QPushButton* Command2 = nullptr;       // closes without result
    QPushButton* Command3 = nullptr;       // loads a document
    QPushButton* Command4 = nullptr;       // saves the document
    QPushButton* Command5 = nullptr;       // removes the selected entry
    QPushButton* Command6 = nullptr;       // removes all entries
    QPushButton* Command8 = nullptr;       // adds all files of the folder
    QPushButton* Command9 = nullptr;       // moves the selected entry up
    QPushButton* Command10 = nullptr;      // moves the selected entry down

    void reject() override;
    /// Every way of closing stores the folder of File1, unless a picker has stored a later one.
    void done(int result) override;

protected:
    EditorWindow(EditorServices& services, QStringView name, QWidget* parent);

    void closeEvent(QCloseEvent* event) override;
    /// Return presses the button that has the focus; there is no other default.
    void keyPressEvent(QKeyEvent* event) override;

    // Building
    /// list: the folder tree, the file list, the list and its boxes are made inside it.
    void buildListControls(QWidget* frame, EntryListView::Look look);
    void buildListButtons();
    [[nodiscard]] virtual ControlRows controls() = 0;
    /// Names and texts. Called when every control is there.
    void setUpControls();
    /// Add, remove and move, below the list.
    [[nodiscard]] QBoxLayout* editRow();
    /// Buttons that lie over each other: a mode shows one of them.
    using Place = std::vector<QPushButton*>;
    /// These at the left; Cancel and the create buttons at the right.
    [[nodiscard]] QBoxLayout* buttonRow(const std::vector<Place>& left, const Place& create);
    void finishLayout(QSize firstSize);

    // Handlers
    template <typename Sender, typename Signal, typename Handler>
    void on(Sender* sender, Signal signal, Handler handler)
    {
        connect(sender, signal, this, m_services.boundary(std::move(handler)));
    }
    void connectListHandlers();
    /// The keys of undo and redo. Text boxes come first.
    void connectUndo();
    /// One edit of a box is one step of the list.
    void connectRunOf(const LineBox* box, EntryListView* list);
    /// The button and the keys that change a list, a null button for none.
    void connectRemove(EntryListView* list, QPushButton* remove);
    void connectMoves(EntryListView* list, QPushButton* up, QPushButton* down);
    /// The document's name behind the caption, and a sign when it has changed.
    void showTitle();
    void showStoredFolder(FolderTree* tree);

    /// The list of the mode that is shown.
    [[nodiscard]] virtual EntryListView* shownList() const { return List1; }
    /// Whether closing loses nothing.
    [[nodiscard]] virtual bool isEmpty() const;
    /// The file that the user picks; empty for none.
    [[nodiscard]] QString pickFile(const QString& pattern);
    /// Reads a document that the user picks into List1; a failing step ends it silently.
    void loadList(const QString& pattern, void (*load)(EntryList&, const QString&));
    using Write = std::function<void(const QString& target)>;
    /// Writes the file that the user names; a failing step ends it silently.
    void save(const QString& pattern, const Write& write);
    /// The same for the document of another list than List1. The name of its file is proposed.
    void save(const QString& pattern, EntryListView& list, const Write& write);
    /// Writes the temporary document and closes; without entries it closes without result.
    void create(const EntryListView& list, const QString& temporaryName, const Write& write);

    [[nodiscard]] EditorServices& services() const { return m_services; }
    [[nodiscard]] const WindowTexts& texts() const { return m_texts; }
    /// Of the document that was loaded into List1 last; empty before.
    [[nodiscard]] const QString& documentFolder() const { return List1->document().folder; }

private:
    void FolderTreeview1_FolderClick(const QString& folder);
    void Command2_Click();
    void Command8_Click();

    EditorServices& m_services;
    WindowTexts m_texts;
    QString m_caption; // the title without a document
};

} // namespace orvanta
