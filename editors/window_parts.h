// Small parts that pickers and editors share.
#pragma once

#include "model/module1.h"
#include "playback/control_rows.h"

#include <QIcon>
#include <QKeySequence>
#include <QLineEdit>
#include <QList>
#include <QSize>

class QLabel;
class QPushButton;
class QSplitter;
class QWidget;

namespace orvanta {

/// The texts of one window in one language.
class WindowTexts
{
public:
    WindowTexts(QStringView window, TextLanguage language)
        : m_window(window),
          m_language(language)
    {}
    [[nodiscard]] QString operator()(QStringView control) const
    {
        return interfaceText(m_window, control, m_language);
    }
    [[nodiscard]] TextLanguage language() const { return m_language; }

private:
    QStringView m_window;
    TextLanguage m_language;
};

/// The editors are Russian for 2 alone: the pickers see it the other way round, and both stay as
/// they are.
[[nodiscard]] TextLanguage editorLanguage(const Module1& module);

/// In text boxes and in the lists of editors, whatever the desktop takes for them besides.
[[nodiscard]] QList<QKeySequence> undoKeys();
[[nodiscard]] QList<QKeySequence> redoKeys();

/// A box for one line of a file: line breaks that are pasted become blanks, and a text of any
/// length stays whole. With nothing of its own to undo, it leaves the key to its window.
class LineBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineBox(QWidget* parent = nullptr);
    /// Shows a text from its beginning. This alone is the program's change.
    void show(const QString& text);

    using QLineEdit::show;

Q_SIGNALS:
    /// The user changed the text, which is one line by now.
    void edited();

protected:
    bool event(QEvent* event) override;

private:
    void takeChange();

    bool m_isShowing = false;
};

/// The pictures of buttons without captions. They follow the desktop's colours and any scale.
enum class ButtonPicture
{
    Ok,     // a check mark
    Create, // a check mark in a filled disc
    Play,   // a triangle
    Pause,  // two bars
};
[[nodiscard]] QIcon buttonPicture(ButtonPicture picture);

/// Buttons never become the default by themselves: Enter in a text box must not close an editor.
[[nodiscard]] QPushButton* captionButton(QWidget* parent);
[[nodiscard]] QPushButton* pictureButton(ButtonPicture picture, QWidget* parent);
/// Widens the buttons with captions. Called when they have them.
void giveRoomAtTheSides(QWidget& window);

/// A caption above or beside a box, which it names for assistive technology.
[[nodiscard]] QLabel* boxLabel(const QString& caption, QWidget* box);

/// A folder tree with its file list below it.
[[nodiscard]] QSplitter* chooserOf(QWidget* tree, QWidget* files);

} // namespace orvanta
