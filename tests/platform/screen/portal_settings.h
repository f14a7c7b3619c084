// The portal's settings, as a desktop would offer them.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include <gtest/gtest.h>
#include <utility>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PortalSettings : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = 0;
    int reads = 0;

    explicit PortalSettings(QDBusConnection bus)
        : m_bus(std::move(bus))
    {}

    void choose(uint chosen)
    {
        scheme = chosen;
        tell(u"org.freedesktop.appearance"_s, u"color-scheme"_s, chosen);
    }

    /// As a message of its own: a signal of this class would make known to the toolkit the type of
    /// its value, which a program does not always know.
    void tell(const QString& group, const QString& key, uint value)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        EXPECT_TRUE(m_bus.send(signal));
    }

public Q_SLOTS:
    /// Twice wrapped, as the portals of this method do.
    Q_SCRIPTABLE QDBusVariant Read(const QString& group, const QString& key)
    {
        ++reads;
        const bool isKnown = group == u"org.freedesktop.appearance" && key == u"color-scheme";
        return QDBusVariant(QVariant::fromValue(QDBusVariant(isKnown ? scheme : 99)));
    }

private:
    QDBusConnection m_bus;
};

} // namespace orvanta::test
