// What the open picker and the save picker have in common.
#pragma once

#include "core/error_boundary.h"
#include "editors/folder_names.h"
#include "editors/window_parts.h"
#include "model/module1.h"

#include <QDialog>

class QPushButton;
class QVBoxLayout;

namespace orvanta {

class FileListBox;
class FolderTree;

/// A folder tree, a file list by pattern, OK and Cancel, and a box for typed or pasted paths. Esc
/// is Cancel, Enter and a double click are OK; OK goes to a path that was typed, first.
class PickerWindow : public QDialog
{
    Q_OBJECT

public:
    FolderTree* FolderTreeview1 = nullptr; // chooses the folder
    FileListBox* File1 = nullptr;          // the folder's files that match the pattern
    QPushButton* Command1 = nullptr;       // OK: a picture without caption
    QPushButton* Command2 = nullptr;       // Cancel
    LineBox* PathBox = nullptr;            // the folder, or a path to go to

    /// Cancel, as Esc does it.
    void reject() override;

protected:
    PickerWindow(Module1& module, HandlerBoundary boundary, QStringView name,
                 const QString& pattern, QWidget* parent);

    /// The load procedure's end: the stored folder. Called when the window is complete.
    void showStoredFolder();
    /// Stores the folder as the last one used.
    void storeFolder();
    [[nodiscard]] virtual ControlRows controls() = 0;
    /// Names, texts and the order of Tab. Called when every control is there.
    void setUpControls();
    void connectHandlers();
    /// Everything below the lists, above the buttons.
    [[nodiscard]] QVBoxLayout* lowerPart() const { return m_lowerPart; }
    [[nodiscard]] const WindowTexts& texts() const { return m_texts; }
    [[nodiscard]] Module1& module() { return m_module; }
    [[nodiscard]] const HandlerBoundary& boundary() const { return m_boundary; }
    [[nodiscard]] const QString& pattern() const { return m_pattern; }

    virtual void Command1_Click() = 0;
    virtual void Command2_Click() = 0;
    /// Whether a path that was typed is one to go to. Otherwise nothing changes and it stays in its
    /// box. Names a folder that exists.
    [[nodiscard]] virtual bool leadsSomewhere(const TypedPath& typed) const = 0;
    /// A name was typed into the path box for the folder that is shown now.
    virtual void takeTypedName(const QString& name) = 0;
    virtual void folderShown() {}

    void closeEvent(QCloseEvent* event) override;
    /// Enter in the path box goes there; everywhere else it is OK.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void layOut();
    void FolderTreeview1_FolderClick(const QString& folder);
    void showPath(const QString& folder);
    void pressOk();
    void goToTypedPath();

    Module1& m_module;
    HandlerBoundary m_boundary;
    WindowTexts m_texts;
    QString m_pattern;
    QString m_shownPath; // what the path box showed before the user typed into it
    QVBoxLayout* m_lowerPart = nullptr;
};

} // namespace orvanta
