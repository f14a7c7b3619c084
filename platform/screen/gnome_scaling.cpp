#include "platform/screen/gnome_scaling.h"

#include <QDBusArgument>
#include <QDBusMessage>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr uint kCountsPixels = 2; // "layout-mode"; 1 is units of the scale

static QDBusMessage monitors(const QDBusConnection& session)
{
    constexpr int kLongestMs = 500;
    QDBusMessage question = QDBusMessage::createMethodCall(
        u"org.gnome.Mutter.DisplayConfig"_s, u"/org/gnome/Mutter/DisplayConfig"_s,
        u"org.gnome.Mutter.DisplayConfig"_s, u"GetCurrentState"_s);
    question.setAutoStartService(false);
    return session.call(question, QDBus::Block, kLongestMs);
}

/// Of an array of (x, y, scale, …).
static bool isAnyScaled(const QDBusArgument& screens)
{
    bool isScaled = false;
    screens.beginArray();
    while (!screens.atEnd()) {
        int x = 0;
        int y = 0;
        double scale = 1;
        screens.beginStructure();
        screens >> x >> y >> scale;
        screens.endStructure();
        isScaled = isScaled || scale != 1;
    }
    screens.endArray();
    return isScaled;
}

bool shellEnlargesX11(const QDBusConnection& session)
{
    // A number of the state, the monitors, the screens that show them, properties.
    const QVariantList answer = monitors(session).arguments();
    if (answer.size() < 4) {
        return true;
    }
    const auto screens = answer.at(2).value<QDBusArgument>();
    if (!screens.currentSignature().startsWith("a(iid"_L1)) {
        return true;
    }
    const auto properties = qdbus_cast<QVariantMap>(answer.at(3));
    return properties.value(u"layout-mode"_s).toUInt() != kCountsPixels && isAnyScaled(screens);
}

bool shellEnlargesX11()
{
    const QString name = u"orvanta-scaling"_s;
    const bool isEnlarging =
        shellEnlargesX11(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name));
    QDBusConnection::disconnectFromBus(name);
    return isEnlarging;
}

} // namespace orvanta
