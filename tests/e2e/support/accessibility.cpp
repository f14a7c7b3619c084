#include "tests/e2e/support/accessibility.h"

#include "tests/e2e/support/wait.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>

#include <utility>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

namespace {

struct Reference
{
    QString service;
    QDBusObjectPath path;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

const QString kAccessible = u"org.a11y.atspi.Accessible"_s;
const QString kAction = u"org.a11y.atspi.Action"_s;
const QString kValue = u"org.a11y.atspi.Value"_s;
constexpr int kCallMs = 5000;

} // namespace

Accessible::Accessible(QDBusConnection bus, QString service, QString path)
    : m_bus(std::move(bus)),
      m_service(std::move(service)),
      m_path(std::move(path))
{}

QDBusMessage Accessible::call(const QString& interface, const QString& method,
                              const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, m_path, interface, method);
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, kCallMs);
}

static QVariant firstOf(const QDBusMessage& reply)
{
    return reply.arguments().isEmpty() ? QVariant() : reply.arguments().constFirst();
}

QVariant Accessible::property(const QString& interface, const QString& name) const
{
    const QDBusMessage reply =
        call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name});
    return firstOf(reply).value<QDBusVariant>().variant();
}

QString Accessible::name() const
{
    return property(kAccessible, u"Name"_s).toString();
}

QString Accessible::description() const
{
    return property(kAccessible, u"Description"_s).toString();
}

QString Accessible::role() const
{
    return firstOf(call(kAccessible, u"GetRoleName"_s)).toString();
}

QString Accessible::text() const
{
    return firstOf(call(u"org.a11y.atspi.Text"_s, u"GetText"_s, {0, -1})).toString();
}

double Accessible::value() const
{
    return property(kValue, u"CurrentValue"_s).toDouble();
}

void Accessible::setValue(double value) const
{
    call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
         {kValue, u"CurrentValue"_s, QVariant::fromValue(QDBusVariant(value))});
}

QStringList Accessible::actions() const
{
    const int count = property(kAction, u"NActions"_s).toInt();
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(firstOf(call(kAction, u"GetName"_s, {i})).toString());
    }
    return names;
}

void Accessible::act(const QString& action) const
{
    const auto index = static_cast<int>(actions().indexOf(action));
    if (index >= 0) {
        call(kAction, u"DoAction"_s, {index});
    }
}

QRect Accessible::place() const
{
    constexpr uint kOfTheScreen = 0;
    const QVariant reply =
        firstOf(call(u"org.a11y.atspi.Component"_s, u"GetExtents"_s, {kOfTheScreen}));
    if (!reply.canConvert<QDBusArgument>()) {
        return {};
    }
    const auto argument = reply.value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    return {x, y, width, height};
}

bool Accessible::hasState(int state) const
{
    const QVariant reply = firstOf(call(kAccessible, u"GetState"_s));
    if (!reply.canConvert<QDBusArgument>()) {
        return false;
    }
    QList<uint> words;
    reply.value<QDBusArgument>() >> words;
    return words.size() > state / 32 && ((words[state / 32] >> (state % 32)) & 1U) != 0;
}

Accessible Accessible::window() const
{
    // A dialog's parent is the window that it belongs to.
    const QVariant reply = property(kAccessible, u"Parent"_s);
    if (role() == u"dialog" || !reply.canConvert<QDBusArgument>()) {
        return *this;
    }
    Reference reference;
    reply.value<QDBusArgument>() >> reference;
    const Accessible parent(m_bus, reference.service, reference.path.path());
    return parent.role() == u"application" ? *this : parent.window();
}

std::vector<Accessible> Accessible::children() const
{
    std::vector<Accessible> found;
    const QVariant reply = firstOf(call(kAccessible, u"GetChildren"_s));
    if (!reply.canConvert<QDBusArgument>()) {
        return found;
    }
    const auto argument = reply.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        Reference reference;
        argument >> reference;
        found.emplace_back(m_bus, reference.service, reference.path.path());
    }
    argument.endArray();
    return found;
}

int Accessible::childCount() const
{
    return property(kAccessible, u"ChildCount"_s).toInt();
}

std::optional<Accessible> Accessible::child(int index) const
{
    const QVariant reply = firstOf(call(kAccessible, u"GetChildAtIndex"_s, {index}));
    if (!reply.canConvert<QDBusArgument>()) {
        return std::nullopt;
    }
    Reference reference;
    reply.value<QDBusArgument>() >> reference;
    return Accessible(m_bus, reference.service, reference.path.path());
}

static bool hasManyLines(const QString& role)
{
    return role == u"list" || role == u"tree";
}

std::optional<Accessible> Accessible::find(const std::function<bool(const Accessible&)>& test) const
{
    if (test(*this)) {
        return *this;
    }
    if (hasManyLines(role())) {
        return std::nullopt;
    }
    for (const Accessible& each : children()) {
        if (std::optional<Accessible> found = each.find(test)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<Accessible> Accessible::find(const QString& role, const QString& name) const
{
    return find([&](const Accessible& each) {
        return each.role() == role && (each.name() == name || each.description() == name);
    });
}

QString Accessible::outline(int depth) const
{
    QString lines = QString(qsizetype{2} * depth, u' ') +
                    u"[%1] \"%2\" (%3)\n"_s.arg(role(), name(), description());
    if (!hasManyLines(role())) {
        for (const Accessible& each : children()) {
            lines += each.outline(depth + 1);
        }
    }
    return lines;
}

static QString addressOfAccessibilityBus(const QDBusConnection& session)
{
    const QDBusMessage request = QDBusMessage::createMethodCall(
        u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
    return firstOf(session.call(request, QDBus::Block, kPatienceMs)).toString();
}

static QString uniqueName()
{
    static int number = 0;
    return u"end to end %1"_s.arg(++number);
}

AccessibilityBus::AccessibilityBus(Desktop& desktop)
    : m_desktop(desktop),
      m_sessionName(uniqueName()),
      m_name(uniqueName())
{
    const QDBusConnection session =
        QDBusConnection::connectToBus(desktop.busAddress(), m_sessionName);
    QDBusConnection::connectToBus(addressOfAccessibilityBus(session), m_name);
}

AccessibilityBus::~AccessibilityBus()
{
    QDBusConnection::disconnectFromBus(m_name);
    QDBusConnection::disconnectFromBus(m_sessionName);
}

std::optional<Accessible> AccessibilityBus::programNow(qint64 pid)
{
    const QDBusConnection bus(m_name);
    const Accessible root(bus, u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s);
    for (const Accessible& each : root.children()) {
        if (bus.interface()->servicePid(each.service()).value() == pid) {
            return each;
        }
    }
    return std::nullopt;
}

std::optional<Accessible> AccessibilityBus::program(qint64 pid)
{
    std::optional<Accessible> found;
    const bool there = waitFor([&] {
        found = programNow(pid);
        return found.has_value();
    });
    return there ? found : std::nullopt;
}

std::optional<Accessible> AccessibilityBus::control(qint64 pid, const QString& role,
                                                    const QString& name)
{
    std::optional<Accessible> found;
    const bool there = waitFor([&] {
        const std::optional<Accessible> top = programNow(pid);
        found = top ? top->find(role, name) : std::nullopt;
        return found && found->isShowing() && m_desktop.showsWindowAt(found->window().place());
    });
    return there ? found : std::nullopt;
}

AccessibleEvents::AccessibleEvents(const AccessibilityBus& bus)
    : m_bus(bus.connection())
{
    m_bus.connect({}, {}, u"org.a11y.atspi.Event.Object"_s, {}, this, SLOT(hear(QDBusMessage)));
    // Programs tell nothing until somebody has said what to listen for.
    QDBusMessage wish =
        QDBusMessage::createMethodCall(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry"_s,
                                       u"org.a11y.atspi.Registry"_s, u"RegisterEvent"_s);
    wish << u"object:"_s;
    m_bus.call(wish, QDBus::Block, kPatienceMs);
}

void AccessibleEvents::hear(const QDBusMessage& event)
{
    const Accessible teller(m_bus, event.service(), event.path());
    m_heard.append(u"%1 %2 %3 %4"_s.arg(event.member(), event.arguments().value(0).toString(),
                                        teller.role(), teller.name()));
}

} // namespace orvanta::e2e
