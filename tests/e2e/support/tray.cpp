#include "tests/e2e/support/tray.h"

#include "tests/e2e/support/wait.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCallMs = 10000;

/// An entry of a menu with the entries below it, as com.canonical.dbusmenu sends it.
struct MenuNode
{
    int id = 0;
    QVariantMap properties;
    std::vector<MenuNode> children;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuNode& node)
{
    argument.beginStructure();
    argument >> node.id >> node.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        child.variant().value<QDBusArgument>() >> node.children.emplace_back();
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

TrayEntry entryOf(const MenuNode& node)
{
    return {node.id, node.properties.value(u"label"_s).toString(),
            node.properties.value(u"type"_s).toString() == u"separator",
            node.properties.value(u"enabled"_s, true).toBool()};
}

QVariant firstOf(const QDBusMessage& reply)
{
    return reply.arguments().isEmpty() ? QVariant() : reply.arguments().constFirst();
}

QString nextBusName()
{
    static int number = 0;
    return u"tray %1"_s.arg(++number);
}

} // namespace

Tray::Tray(const Desktop& desktop)
    : m_busName(nextBusName()),
      m_bus(QDBusConnection::connectToBus(desktop.busAddress(), m_busName))
{
    m_watcher.setProcessEnvironment(desktop.environment());
    m_watcher.start(QStringLiteral(ORVANTA_BUILD_DIR "/tray_watcher"), QStringList());
    m_ready = m_watcher.readFirstLine() == "ready";
}

Tray::~Tray()
{
    QDBusConnection::disconnectFromBus(m_busName);
}

QDBusMessage Tray::call(const QString& path, const QString& interface, const QString& method,
                        const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(icons().value(0), path, interface, method);
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, kCallMs);
}

QStringList Tray::icons()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
        u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << u"org.kde.StatusNotifierWatcher"_s << u"RegisteredStatusNotifierItems"_s;
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, kCallMs);
    return firstOf(reply).value<QDBusVariant>().variant().toStringList();
}

bool Tray::waitForIcons(int count)
{
    return waitFor([&] { return icons().size() == count; });
}

QVariant Tray::itemProperty(const QString& name)
{
    const QDBusMessage reply = call(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s,
                                    u"Get"_s, {u"org.kde.StatusNotifierItem"_s, name});
    return firstOf(reply).value<QDBusVariant>().variant();
}

QString Tray::toolTip()
{
    // Icon name, pictures, title, text.
    const QVariant value = itemProperty(u"ToolTip"_s);
    if (!value.canConvert<QDBusArgument>()) {
        return {};
    }
    const auto argument = value.value<QDBusArgument>();
    QString iconName;
    QString title;
    argument.beginStructure();
    argument >> iconName;
    argument.asVariant(); // the pictures
    argument >> title;
    argument.endStructure();
    return title;
}

bool Tray::hasPicture()
{
    const QVariant pictures = itemProperty(u"IconPixmap"_s);
    if (!itemProperty(u"IconName"_s).toString().isEmpty()) {
        return true;
    }
    if (!pictures.canConvert<QDBusArgument>()) {
        return false;
    }
    const auto argument = pictures.value<QDBusArgument>();
    argument.beginArray();
    const bool any = !argument.atEnd();
    argument.endArray();
    return any;
}

void Tray::leftClick()
{
    call(u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, u"Activate"_s, {0, 0});
}

std::vector<TrayEntry> Tray::menu()
{
    const QString path = itemProperty(u"Menu"_s).value<QDBusObjectPath>().path();
    const QDBusMessage reply =
        call(path, u"com.canonical.dbusmenu"_s, u"GetLayout"_s, {0, -1, QVariant(QStringList())});
    std::vector<TrayEntry> entries;
    if (reply.arguments().size() < 2) {
        return entries;
    }
    MenuNode root;
    reply.arguments().at(1).value<QDBusArgument>() >> root;
    std::transform(root.children.begin(), root.children.end(), std::back_inserter(entries),
                   entryOf);
    return entries;
}

QStringList Tray::captions()
{
    QStringList texts;
    for (const TrayEntry& entry : menu()) {
        texts.append(entry.isSeparator ? u"-"_s : entry.caption);
    }
    return texts;
}

bool Tray::choose(const QString& caption)
{
    const std::vector<TrayEntry> entries = menu();
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [&](const TrayEntry& each) { return each.caption == caption; });
    if (entry == entries.end()) {
        return false;
    }
    const QString path = itemProperty(u"Menu"_s).value<QDBusObjectPath>().path();
    const QVariant data = QVariant::fromValue(QDBusVariant(QString()));
    call(path, u"com.canonical.dbusmenu"_s, u"Event"_s,
         {entry->id, u"clicked"_s, data, QVariant::fromValue(uint(0))});
    return true;
}

} // namespace orvanta::e2e
