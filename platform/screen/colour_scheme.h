// Windows in the colours that the desktop asks for, also after it has changed its mind.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QPalette>

#include <optional>

namespace orvanta {

/// Follows the desktop's choice between light and dark: the portal's where one runs, else the
/// toolkit's own theme. The toolkit of this age takes its theme's colours once, at the start, and
/// does not know the portal's choice at all. Where its colours are as light or as dark as is asked
/// for, they stay. One in a program, after the application object.
class ColourScheme : public QObject
{
    Q_OBJECT

public:
    explicit ColourScheme(QDBusConnection bus, QObject* parent = nullptr);

    /// The themes of a window change with it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Choice
    {
        None, // the toolkit's own
        Dark,
        Light,
    };

    void askPortal();
    void takeChoice(const QVariant& answer);
    void apply();

    [[nodiscard]] Choice wanted() const;

    QDBusConnection m_bus;
    Choice m_portals = Choice::None;
    std::optional<QPalette> m_toolkits; // its colours, while others are shown

private Q_SLOTS:
    void SettingChanged(const QDBusMessage& signal);
};

} // namespace orvanta
