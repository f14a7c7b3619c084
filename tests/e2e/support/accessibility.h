// What assistive technology can see of the program: its controls, their texts, values and places.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace orvanta::e2e {

/// One accessible object of the program.
class Accessible
{
public:
    Accessible(QDBusConnection bus, QString service, QString path);

    [[nodiscard]] QString service() const { return m_service; }
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString description() const; // of a control without one: its tool tip
    [[nodiscard]] QString role() const;        // "push button", "list", "slider", "text", "label"
    [[nodiscard]] QString text() const;        // of an edit field
    [[nodiscard]] double value() const;        // of a slider
    void setValue(double value) const;         // as the user's own step
    [[nodiscard]] QStringList actions() const; // what can be done with it: "Press", "Toggle"
    void act(const QString& action) const;
    [[nodiscard]] QRect place() const; // pixels of the screen
    [[nodiscard]] bool isShowing() const { return hasState(kShowing); }
    [[nodiscard]] bool isActive() const
    {
        return hasState(kActive);
    } // of a window: has the keyboard
    [[nodiscard]] bool isEnabled() const { return hasState(kEnabled); }
    [[nodiscard]] bool isChecked() const { return hasState(kChecked); }
    [[nodiscard]] bool isSelected() const { return hasState(kSelected); }

    /// The window that it is in; of a window: itself.
    [[nodiscard]] Accessible window() const;
    [[nodiscard]] std::vector<Accessible> children() const;
    [[nodiscard]] int childCount() const;
    [[nodiscard]] std::optional<Accessible> child(int index) const;
    /// This object or the first below it, depth first, for which the test holds. Does not look
    /// into lists and trees, which may have thousands of lines.
    [[nodiscard]] std::optional<Accessible>
    find(const std::function<bool(const Accessible&)>& test) const;
    /// The same by role and by name or tool tip.
    [[nodiscard]] std::optional<Accessible> find(const QString& role, const QString& name) const;

    /// Roles, names and descriptions of everything below, for the message of a failing test.
    [[nodiscard]] QString outline(int depth = 0) const;

private:
    static constexpr int kActive = 1;
    static constexpr int kChecked = 4;
    static constexpr int kEnabled = 8;
    static constexpr int kSelected = 23;
    static constexpr int kShowing = 25;

    [[nodiscard]] bool hasState(int state) const;
    [[nodiscard]] QVariant property(const QString& interface, const QString& name) const;
    QDBusMessage call(const QString& interface, const QString& method,
                      const QVariantList& arguments = {}) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

/// A connection to the accessibility bus of a desktop.
class AccessibilityBus
{
public:
    explicit AccessibilityBus(Desktop& desktop);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus&) = delete;
    AccessibilityBus& operator=(const AccessibilityBus&) = delete;

    /// The top of the program with this process id; waits until it is there.
    [[nodiscard]] std::optional<Accessible> program(qint64 pid);
    /// A control of that program; waits until it is there and showing, and until the program has
    /// learnt where its window is: a window manager places a window after it is shown.
    [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(m_name); }
    [[nodiscard]] std::optional<Accessible> control(qint64 pid, const QString& role,
                                                    const QString& name);

private:
    [[nodiscard]] std::optional<Accessible> programNow(qint64 pid);

    Desktop& m_desktop;
    QString m_sessionName;
    QString m_name;
};

/// Hears what the programs of a desktop tell assistive technology, as a screen reader does.
class AccessibleEvents : public QObject
{
    Q_OBJECT

public:
    explicit AccessibleEvents(const AccessibilityBus& bus);

    /// "StateChanged focused list item one": the event, its detail, who tells it.
    [[nodiscard]] QStringList heard() const { return m_heard; }
    void forget() { m_heard.clear(); }

private Q_SLOTS:
    void hear(const QDBusMessage& event);

private:
    QDBusConnection m_bus;
    QStringList m_heard;
};

} // namespace orvanta::e2e
