#include "tests/captions/captions.h"

#include "system/option_box.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

/// A control's caption and the pixels that are left for it.
struct Caption
{
    QString text;
    int needed = 0;
    int room = 0;
};

int widthOf(const QWidget& control, const QString& text)
{
    return control.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

int roomInButton(const QAbstractButton& button)
{
    if (qobject_cast<const QPushButton*>(&button) == nullptr) {
        // A box or a dot stands before the text: what the control asks for beyond its text.
        return button.width() - (button.sizeHint().width() - widthOf(button, button.text()));
    }
    QStyleOptionButton option;
    option.initFrom(&button);
    return button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button).width();
}

Caption captionOfLabel(const QLabel& label)
{
    if (label.wordWrap()) {
        // Its room is its height.
        return {label.text(), label.heightForWidth(label.width()), label.height()};
    }
    return {label.text(), widthOf(label, label.text()), label.contentsRect().width()};
}

Caption captionOfBox(const QLineEdit& box)
{
    QStyleOptionFrame option;
    option.initFrom(&box);
    const QRect inner = box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box);
    const QString text = box.placeholderText();
    return {text, text.isEmpty() ? 0 : widthOf(box, text), inner.width()};
}

/// Its caption may take several lines: its room is its height.
Caption captionOfOption(const OptionBox& option)
{
    const QRect place = option.captionPlace().intersected(option.rect());
    const QRect text = option.fontMetrics().boundingRect(
        QRect(0, 0, place.width(), 0), Qt::TextWordWrap | Qt::TextShowMnemonic, option.text());
    return {option.text(), text.height(), place.height()};
}

Caption captionOf(const QWidget& control)
{
    if (const auto* option = qobject_cast<const OptionBox*>(&control)) {
        return captionOfOption(*option);
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return {button->text(), widthOf(*button, button->text()), roomInButton(*button)};
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return captionOfLabel(*label);
    }
    if (const auto* box = qobject_cast<const QLineEdit*>(&control)) {
        return captionOfBox(*box);
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&control)) {
        return {group->title(), widthOf(*group, group->title()), group->width() - 16};
    }
    return {};
}

QString nameOf(const QWidget& control)
{
    const QString name = control.objectName();
    return name.isEmpty() ? QString::fromLatin1(control.metaObject()->className()) : name;
}

/// Whether all of a control lies in its window; what scrolls may lie anywhere.
bool isInside(const QWidget& control, const QWidget& window)
{
    const QPoint corner = control.mapTo(&window, QPoint(0, 0));
    return window.rect().contains(QRect(corner, control.size()));
}

QStringList complaintsAbout(const QWidget& control, const QWidget& window)
{
    const Caption caption = captionOf(control);
    if (caption.text.isEmpty()) {
        return {};
    }
    QStringList complaints;
    if (caption.needed > caption.room) {
        complaints.append(u"%1 \"%2\" needs %3, has %4"_s.arg(nameOf(control), caption.text)
                              .arg(caption.needed)
                              .arg(caption.room));
    }
    if (!isInside(control, window)) {
        complaints.append(
            u"%1 \"%2\" lies outside the window"_s.arg(nameOf(control), caption.text));
    }
    return complaints;
}

QChar accessKey(const QString& caption)
{
    const qsizetype mark = QString(caption).replace(u"&&"_s, u"  "_s).indexOf(u'&');
    return mark < 0 || mark + 1 >= caption.size() ? QChar() : caption.at(mark + 1).toUpper();
}

/// Remembers who has which key.
class KeyRegister
{
public:
    void add(const QString& caption)
    {
        const QChar key = accessKey(caption);
        if (key.isNull()) {
            return;
        }
        if (const auto other = m_owners.constFind(key); other != m_owners.constEnd()) {
            m_complaints.append(u"\"%1\" and \"%2\" share %3"_s.arg(*other, caption, key));
        }
        m_owners.insert(key, caption);
    }
    void complain(const QString& complaint) { m_complaints.append(complaint); }
    [[nodiscard]] QStringList complaints() const { return m_complaints; }

private:
    QMap<QChar, QString> m_owners;
    QStringList m_complaints;
};

} // namespace

QStringList captionsThatDoNotFit(const QWidget& window)
{
    QStringList complaints;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (control->isVisibleTo(&window) && !control->isWindow()) {
            complaints += complaintsAbout(*control, window);
        }
    }
    return complaints;
}

int captionCount(const QWidget& window)
{
    int count = 0;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        count += control->isVisibleTo(&window) && !captionOf(*control).text.isEmpty() ? 1 : 0;
    }
    return count;
}

QStringList accessKeyComplaints(const QMenu& menu)
{
    KeyRegister keys;
    for (const QAction* entry : menu.actions()) {
        if (entry->isSeparator()) {
            continue;
        }
        if (accessKey(entry->text()).isNull()) {
            keys.complain(u"\"%1\" has no access key"_s.arg(entry->text()));
        }
        keys.add(entry->text());
    }
    return keys.complaints();
}

QStringList accessKeyComplaints(const QWidget& window)
{
    KeyRegister keys;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (control->isVisibleTo(&window) && !control->isWindow()) {
            keys.add(captionOf(*control).text);
        }
    }
    return keys.complaints();
}

} // namespace orvanta::test
