#include "window/editing_row.h"

#include "window/skin.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QPushButton>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kIconSide = 16;

EditingRow::EditingRow(TextLanguage language, QWidget* parent)
    : QWidget(parent),
      MarkButton(makeButton(u"mark"_s, Command::Mark)),
      RemoveButton(makeButton(u"remove"_s, Command::RemoveLines)),
      UpButton(makeButton(u"line_up"_s, Command::LinesUp)),
      DownButton(makeButton(u"line_down"_s, Command::LinesDown)),
      UndoButton(makeButton(u"undo"_s, Command::Undo)),
      RedoButton(makeButton(u"redo"_s, Command::Redo)),
      SaveButton(makeButton(u"save"_s, Command::Save)),
      MoreButton(makeButton(u"more"_s, Command::ShowMenu)),
      DoneButton(makeButton({}, Command::EditMode)),
      More(new QMenu(this)),
      m_language(language)
{
    nameControls(controls());
    applyTexts(controls(), language);
    nameKeys();
    layOut();
    More->setStyleSheet(skin::commandMenuSheet());
    connect(MoreButton, &QPushButton::clicked, this,
            [this] { More->popup(MoreButton->mapToGlobal(QPoint(0, MoreButton->height() + 2))); });
}

ControlRows EditingRow::controls()
{
    return {
        {this, u"Editing"},
        {MarkButton, u"MarkButton"},
        {RemoveButton, u"RemoveButton"},
        {UpButton, u"UpButton"},
        {DownButton, u"DownButton"},
        {UndoButton, u"UndoButton"},
        {RedoButton, u"RedoButton"},
        {SaveButton, u"SaveButton"},
        {MoreButton, u"MoreButton"},
        {DoneButton, u"DoneButton"},
        {More, u"More"},
    };
}

/// With room between it and the button's caption.
static QPixmap pictureBefore(const QPixmap& picture, int width)
{
    const qreal ratio = picture.devicePixelRatio();
    QPixmap wide(QSizeF(width * ratio, kIconSide * ratio).toSize());
    wide.setDevicePixelRatio(ratio);
    wide.fill(Qt::transparent);
    QPainter(&wide).drawPixmap(0, 0, picture);
    return wide;
}

/// A picture that is quiet while the button can do nothing.
static QIcon iconOf(const QString& name, int width, qreal ratio)
{
    const QColor colour = name == u"mark" ? skin::kSurface : skin::kText;
    QIcon icon(pictureBefore(skin::picture(name, colour, kIconSide, ratio), width));
    icon.addPixmap(pictureBefore(skin::picture(name, skin::kTextMuted, kIconSide, ratio), width),
                   QIcon::Disabled);
    return icon;
}

QPushButton* EditingRow::makeButton(const QString& picture, Command command)
{
    auto* button = new QPushButton(this);
    if (!picture.isEmpty()) {
        const bool hasCaption =
            command == Command::Mark || command == Command::RemoveLines || command == Command::Save;
        const int width = hasCaption ? kIconSide + skin::kGrid / 2 : kIconSide;
        button->setIcon(iconOf(picture, width, devicePixelRatioF()));
        button->setIconSize({width, kIconSide});
    }
    button->setMinimumHeight(skin::kButtonSide);
    if (command != Command::ShowMenu) {
        connect(button, &QPushButton::clicked, this, [this, command] { Q_EMIT asked(command); });
    }
    return button;
}

void EditingRow::nameKeys()
{
    for (const ControlRow& row : controls()) {
        const auto command = std::ranges::find(commands(), row.name, &CommandRow::control);
        auto* button = qobject_cast<QPushButton*>(row.control);
        if (button != nullptr && command != commands().end()) {
            setTipWithKey(*button, button->toolTip(), shownKey(*command));
        }
    }
}

void EditingRow::layOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(skin::kGrid);
    for (QPushButton* button : {MarkButton, RemoveButton, UpButton, DownButton, UndoButton,
                                RedoButton, SaveButton, MoreButton}) {
        row->addWidget(button);
    }
    row->addStretch(1);
    row->addWidget(DoneButton);
    for (QPushButton* button : {UpButton, DownButton, UndoButton, RedoButton, MoreButton}) {
        button->setFixedWidth(skin::kButtonSide);
    }
}

/// The button's name says what it would take back.
static void nameStep(QPushButton& button, const QString& step, const QString& plain,
                     const QString& named, Command command)
{
    const QString name = step.isEmpty() ? plain : named.arg(step);
    button.setEnabled(!step.isEmpty());
    button.setAccessibleName(name);
    setTipWithKey(button, name, shownKey(rowOf(command)));
}

void EditingRow::setState(const EditingState& state)
{
    const auto text = [&](QStringView name) { return interfaceText(u"Editing", name, m_language); };
    MarkButton->setEnabled(state.canMark);
    for (QPushButton* button : {RemoveButton, UpButton, DownButton}) {
        button->setEnabled(state.hasLine);
    }
    SaveButton->setEnabled(state.changed);
    nameStep(*UndoButton, state.undo, text(u"UndoButton.tip"), text(u"UndoButton.of"),
             Command::Undo);
    nameStep(*RedoButton, state.redo, text(u"RedoButton.tip"), text(u"RedoButton.of"),
             Command::Redo);
}

} // namespace orvanta
