#include "playback/spoken_focus.h"

#include "playback/announcement.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta {

namespace {

/// Between a field's event and the news of it, what the field tells of its text is passed over.
class QuietField
{
public:
    static void begin(QLineEdit* field)
    {
        if (s_field == field || !QAccessible::isActive()) {
            return;
        }
        end();
        s_field = field;
        s_before = QAccessible::installUpdateHandler(hear);
        // Nothing comes when the field loses the keyboard at once.
        QMetaObject::invokeMethod(field, &QuietField::end, Qt::QueuedConnection);
    }

private:
    static void end()
    {
        if (s_field != nullptr) {
            s_field = nullptr;
            QAccessible::installUpdateHandler(std::exchange(s_before, nullptr));
        }
    }

    static bool isOfText(const QAccessibleEvent& event)
    {
        constexpr std::array kOfText = {QAccessible::TextCaretMoved, QAccessible::TextInserted,
                                        QAccessible::TextRemoved, QAccessible::TextUpdated,
                                        QAccessible::TextSelectionChanged};
        return std::ranges::find(kOfText, event.type()) != kOfText.end();
    }

    static void hear(QAccessibleEvent* event)
    {
        QLineEdit* field = s_field;
        const bool isOfField = event->object() == field;
        if (isOfField && isOfText(*event)) {
            return;
        }
        // Passed on as if there were no handler; only whoever was there before knows where to.
        QAccessible::installUpdateHandler(s_before);
        QAccessible::updateAccessibility(event);
        if (isOfField && event->type() == QAccessible::Focus) {
            end();
        } else {
            QAccessible::installUpdateHandler(hear);
        }
    }

    static QLineEdit* s_field; // compared only
    static QAccessible::UpdateHandler s_before;
};

QLineEdit* QuietField::s_field = nullptr;
QAccessible::UpdateHandler QuietField::s_before = nullptr;

class FocusTeller : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn && QAccessible::isActive()) {
            prepare(watched);
        }
        return false;
    }

private:
    static void prepare(QObject* control)
    {
        if (auto* field = qobject_cast<QLineEdit*>(control)) {
            QuietField::begin(field);
        } else if (auto* box = qobject_cast<QComboBox*>(control)) {
            // Its owner may have chosen something without a signal meanwhile.
            box->setAccessibleDescription(box->currentText());
        } else if (auto* list = qobject_cast<QAbstractItemView*>(control)) {
            QMetaObject::invokeMethod(
                list, [list] { tellCurrentLine(list); }, Qt::QueuedConnection);
        }
    }

    /// Behind the list's own news, that it has the keyboard.
    static void tellCurrentLine(QAbstractItemView* list)
    {
        auto* accessible = QAccessible::queryAccessibleInterface(list);
        auto* line = list->hasFocus() && accessible != nullptr ? accessible->focusChild() : nullptr;
        if (line != nullptr) {
            QAccessibleEvent event(line, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
        }
    }
};

} // namespace

void tellFocusFirst()
{
    static QPointer<FocusTeller> teller;
    if (teller.isNull()) {
        teller = new FocusTeller(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(teller);
    }
}

void tellFocusAlone(QLineEdit& field)
{
    QuietField::begin(&field);
}

void speakChoice(QComboBox& box)
{
    box.setAccessibleDescription(box.currentText());
    // Made now: one that comes later would be told about, empty, when it is shown.
    Announcement& spoken = announcementBeside(box);
    QObject::connect(&box, &QComboBox::currentTextChanged, &spoken,
                     [&box, &spoken](const QString& choice) {
                         box.setAccessibleDescription(choice);
                         if (box.hasFocus() && !box.view()->isVisible()) {
                             spoken.say(choice);
                         }
                     });
}

} // namespace orvanta
