// What a screen reader says by itself, when nothing that has the keyboard has changed.
#pragma once

#include <QString>
#include <QWidget>

namespace orvanta {

/// Nothing is seen of it: a notification, which appears with each text and is read out when the
/// reader has nothing else to say.
class Announcement : public QWidget
{
    Q_OBJECT

public:
    explicit Announcement(QWidget* parent);

    void say(const QString& text);
    [[nodiscard]] QString text() const { return m_text; }

private:
    QString m_text;
};

/// The one of the window that a control is in, made where there is none yet.
[[nodiscard]] Announcement& announcementBeside(const QWidget& control);

} // namespace orvanta
