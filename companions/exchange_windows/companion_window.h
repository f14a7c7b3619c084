// What the windows of the add-ins have in common.
#pragma once

#include "model/texts.h"

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace orvanta {

struct FileRemark;

/// Takes files that are dropped on it, ends with Escape, and comes up by itself: the player starts
/// its add-ins minimised.
class CompanionWindow : public QWidget
{
    Q_OBJECT

public:
    /// name: of the window in the table of texts, and of this object.
    CompanionWindow(const QString& name, TextLanguage language);

    QPlainTextEdit* Remarks;  // what was left out and what failed; hidden when there is nothing
    QPushButton* CloseButton; // closes the window

Q_SIGNALS:
    void dropped(const QStringList& files);

protected:
    [[nodiscard]] TextLanguage language() const { return m_language; }
    [[nodiscard]] QString text(QStringView control) const;
    /// Buttons and labels get their caption, others their accessible name.
    void nameControl(QWidget& control, QStringView name) const;
    [[nodiscard]] QLabel* labelFor(QWidget& control, QStringView name);
    void showRemarks(const QStringList& lines);

    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void comeUp();

    TextLanguage m_language;
    QElapsedTimer m_sinceShown;
    bool m_mayBeMinimised; // the player does that once, soon after the window has come
};

/// Lines for Remarks.
[[nodiscard]] QStringList remarkLines(const std::vector<FileRemark>& leftOut,
                                      const std::vector<FileRemark>& failures,
                                      TextLanguage language);

} // namespace orvanta
