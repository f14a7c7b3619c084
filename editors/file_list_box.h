// The file list of pickers and editors.
#pragma once

#include <QElapsedTimer>
#include <QIcon>
#include <QListView>
#include <QStringList>

namespace orvanta {

class FileNamesModel;

/// The files of one folder that match a pattern, by name. Typing letters goes to a name.
class FileListBox : public QListView
{
    Q_OBJECT

public:
    explicit FileListBox(QWidget* parent = nullptr);

    [[nodiscard]] QString pattern() const { return m_pattern; }
    void setPattern(const QString& pattern);
    [[nodiscard]] QString folder() const { return m_folder; }
    /// Lists a folder; no file is current then. A folder that is not there leaves the list with its
    /// former one and returns false.
    bool setFolder(const QString& folder);

    [[nodiscard]] QStringList names() const;
    /// The current file's name; empty when none has been chosen.
    [[nodiscard]] QString FileName() const;
    /// The current file's full path; the bare folder with its separator when none has been chosen.
    [[nodiscard]] QString filePath() const;
    /// Names of the selected files in the list's order.
    [[nodiscard]] QStringList selectedNames() const;

    /// Makes the file current and selects it; returns false when it is not listed.
    bool selectName(const QString& name);
    void selectFirst();
    /// Whether Enter counts as a click. Where it does not, it belongs to the window's OK.
    void setEnterClicks(bool on) { m_enterClicks = on; }

    [[nodiscard]] QSize sizeHint() const override { return {280, 200}; }

Q_SIGNALS:
    /// The user clicked a file, or pressed Space (or Enter, see above) on it.
    void Click();
    /// The user moved to a file, by whatever means.
    void fileChosen();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // Beside the names a press changes nothing: what was chosen stays chosen.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void list();
    void selectRow(int row);
    [[nodiscard]] bool isTyping() const;
    [[nodiscard]] bool clicks(const QKeyEvent& event) const;
    void chooseCurrent();
    void clickCurrent();

    FileNamesModel* m_model;
    QString m_pattern;
    QString m_folder;
    bool m_enterClicks = false;
    bool m_pressedBeside = false; // the press that is under way began beside the names
    QElapsedTimer m_typed;        // since the last letter; invalid before the first
};

} // namespace orvanta
