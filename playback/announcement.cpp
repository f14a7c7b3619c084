#include "playback/announcement.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace orvanta {

namespace {

class AnnouncementAccessible : public QAccessibleWidget
{
public:
    explicit AnnouncementAccessible(Announcement* announcement)
        : QAccessibleWidget(announcement, QAccessible::Notification),
          m_announcement(announcement)
    {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_announcement->text() : QString();
    }

private:
    Announcement* m_announcement;
};

} // namespace

static QAccessibleInterface* accessibleAnnouncement(const QString& /*className*/, QObject* object)
{
    auto* announcement = qobject_cast<Announcement*>(object);
    return announcement != nullptr ? new AnnouncementAccessible(announcement) : nullptr;
}

Announcement::Announcement(QWidget* parent)
    : QWidget(parent)
{
    QAccessible::installFactory(accessibleAnnouncement); // once, however often it is called
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(1, 1); // one without a size would not count as showing
}

void Announcement::say(const QString& text)
{
    m_text = text;
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleEvent gone(this, QAccessible::ObjectHide);
    QAccessible::updateAccessibility(&gone);
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
    QAccessibleEvent there(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&there);
}

Announcement& announcementBeside(const QWidget& control)
{
    QWidget* window = control.window();
    auto* there = window->findChild<Announcement*>(QString(), Qt::FindDirectChildrenOnly);
    return there != nullptr ? *there : *new Announcement(window);
}

} // namespace orvanta
