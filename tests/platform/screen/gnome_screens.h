// The screens of a session, as GNOME's shell tells of them.
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QObject>

namespace orvanta::test {

using namespace Qt::StringLiterals;

struct LogicalScreen
{
    int x = 0;
    int y = 0;
    double scale = 1;
    uint transform = 0;
};

inline QDBusArgument& operator<<(QDBusArgument& out, const LogicalScreen& screen)
{
    out.beginStructure();
    out << screen.x << screen.y << screen.scale << screen.transform;
    out.endStructure();
    return out;
}

inline const QDBusArgument& operator>>(const QDBusArgument& in, LogicalScreen& screen)
{
    in.beginStructure();
    in >> screen.x >> screen.y >> screen.scale >> screen.transform;
    in.endStructure();
    return in;
}

class GnomeScreens : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.Mutter.DisplayConfig")

public:
    uint layoutMode = 0;
    QList<double> scales;

    GnomeScreens()
    {
        qDBusRegisterMetaType<LogicalScreen>();
        qDBusRegisterMetaType<QList<LogicalScreen>>();
    }

public Q_SLOTS:
    /// The monitors themselves are told as a list of names here.
    Q_SCRIPTABLE void GetCurrentState()
    {
        QList<LogicalScreen> screens;
        for (const double scale : scales) {
            screens.append(LogicalScreen{.scale = scale});
        }
        setDelayedReply(true);
        connection().send(
            message().createReply({1U, QStringList{u"LVDS1"_s}, QVariant::fromValue(screens),
                                   QVariantMap{{u"layout-mode"_s, layoutMode}}}));
    }
};

} // namespace orvanta::test
