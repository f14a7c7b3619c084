#include "platform/screen/colour_scheme.h"

#include "core/log.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QVersionNumber>
#include <qpa/qplatformtheme.h>

#include <private/qguiapplication_p.h>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kPortal = u"org.freedesktop.portal.Desktop"_s;
static const QString kPortalPath = u"/org/freedesktop/portal/desktop"_s;
static const QString kSettings = u"org.freedesktop.portal.Settings"_s;
static const QString kGroup = u"org.freedesktop.appearance"_s;
static const QString kKey = u"color-scheme"_s;

/// The colours that the portal's choice stands for where the toolkit has no such theme.
static QPalette madePalette(bool isDark)
{
    const QColor window = isDark ? QColor(50, 50, 50) : QColor(239, 239, 239);
    const QColor text = isDark ? Qt::white : Qt::black;
    const QColor accent(48, 140, 198);
    QPalette palette(window);
    palette.setColor(QPalette::Base, isDark ? QColor(36, 36, 36) : QColor(Qt::white));
    palette.setColor(QPalette::AlternateBase, isDark ? QColor(43, 43, 43) : QColor(247, 247, 247));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, isDark ? accent.lighter(130) : accent.darker(140));
    palette.setColor(QPalette::LinkVisited, isDark ? accent.lighter(110) : accent.darker(180));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    QColor faint = text;
    faint.setAlphaF(0.5F);
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role,
                         isDark ? QColor(150, 150, 150) : QColor(120, 120, 120));
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(145, 145, 145));
    return palette;
}

static bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

ColourScheme::ColourScheme(QDBusConnection bus, QObject* parent)
    : QObject(parent),
      m_bus(std::move(bus))
{
    if (QLibraryInfo::version() >= QVersionNumber(6, 5)) {
        return; // from there on the toolkit does all of it
    }
    qGuiApp->installEventFilter(this);
    if (!m_bus.isConnected()) {
        return;
    }
    m_bus.connect(kPortal, kPortalPath, kSettings, u"SettingChanged"_s, this,
                  SLOT(SettingChanged(QDBusMessage)));
    auto* watcher =
        new QDBusServiceWatcher(kPortal, m_bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { askPortal(); });
    askPortal();
}

static bool isPlasma()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(u"KDE"_s);
}

/// A portal that does not run is not started for this: where a desktop has a choice of colours, it
/// runs, or will. Not so in Plasma, which tells its own programs by other ways.
void ColourScheme::askPortal()
{
    QDBusMessage call = QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, u"Read"_s);
    call.setAutoStartService(isPlasma());
    call << kGroup << kKey;
    auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        answer->deleteLater();
        if (reply.isValid()) {
            takeChoice(reply.value().variant());
        } else {
            qCDebug(logDesktop, "no portal says which colours: %s",
                    qUtf8Printable(reply.error().message()));
        }
    });
}

/// Group, key and value.
void ColourScheme::SettingChanged(const QDBusMessage& signal)
{
    const QVariantList parts = signal.arguments();
    if (parts.size() == 3 && parts[0] == kGroup && parts[1] == kKey) {
        takeChoice(parts[2]);
    }
}

/// answer: a number, which older portals put into a variant of its own.
void ColourScheme::takeChoice(const QVariant& answer)
{
    const QVariant inner =
        answer.canConvert<QDBusVariant>() ? answer.value<QDBusVariant>().variant() : answer;
    constexpr uint kPrefersDark = 1;
    constexpr uint kPrefersLight = 2;
    const uint number = inner.toUInt();
    m_portals = number == kPrefersDark    ? Choice::Dark
                : number == kPrefersLight ? Choice::Light
                                          : Choice::None;
    apply();
}

bool ColourScheme::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ThemeChange) {
        apply();
    }
    return QObject::eventFilter(watched, event);
}

ColourScheme::Choice ColourScheme::wanted() const
{
    if (m_portals != Choice::None) {
        return m_portals;
    }
    const QPlatformTheme* theme = QGuiApplicationPrivate::platformTheme();
    switch (theme != nullptr ? theme->appearance() : QPlatformTheme::Appearance::Unknown) {
    case QPlatformTheme::Appearance::Dark:
        return Choice::Dark;
    case QPlatformTheme::Appearance::Light:
        return Choice::Light;
    case QPlatformTheme::Appearance::Unknown:
        break;
    }
    return Choice::None;
}

void ColourScheme::apply()
{
    const Choice choice = wanted();
    const QPalette toolkits = m_toolkits.value_or(QGuiApplication::palette());
    if (choice == Choice::None || (choice == Choice::Dark) == isDark(toolkits)) {
        if (m_toolkits) {
            QGuiApplication::setPalette(*std::exchange(m_toolkits, std::nullopt));
        }
        return;
    }
    qCInfo(logDesktop, "the desktop asks for %s colours, which the toolkit does not have",
           choice == Choice::Dark ? "dark" : "light");
    m_toolkits = toolkits;
    QGuiApplication::setPalette(madePalette(choice == Choice::Dark));
}

} // namespace orvanta
