// Firefox by its own protocol over TCP: each message is its length, a colon and JSON.
#include "tests/e2e/support/owned_process.h"
#include "tests/support/browser/browser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <array>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct KeyRow
{
    QStringView key;
    char16_t character; // by which the protocol knows it
};

constexpr std::array kKeys{
    KeyRow{u"Enter", 0xe007},     KeyRow{u"PageDown", 0xe00f},  KeyRow{u"PageUp", 0xe00e},
    KeyRow{u"Backspace", 0xe003}, KeyRow{u"ArrowLeft", 0xe012}, KeyRow{u"ArrowRight", 0xe014},
    KeyRow{u"ArrowUp", 0xe013},   KeyRow{u"ArrowDown", 0xe015}, KeyRow{u"Home", 0xe011},
    KeyRow{u"End", 0xe010},       KeyRow{u"Tab", 0xe004},       KeyRow{u"Escape", 0xe00c},
    KeyRow{u"F1", 0xe031},        KeyRow{u"F3", 0xe033},        KeyRow{u"F6", 0xe036},
    KeyRow{u"F7", 0xe037},        KeyRow{u"F8", 0xe038},        KeyRow{u"F9", 0xe039},
    KeyRow{u"F11", 0xe03b},       KeyRow{u"Control", 0xe009},   KeyRow{u"Shift", 0xe008},
};

QString characterOf(const QString& key)
{
    const auto row = std::ranges::find(kKeys, key, &KeyRow::key);
    return row == kKeys.end() ? key : QString(QChar(row->character));
}

QJsonObject keyAction(const QString& type, const QString& key)
{
    return {{u"type"_s, type}, {u"value"_s, characterOf(key)}};
}

// One user at a time, and nothing that speaks to anybody.
constexpr char kPreferences[] = "user_pref('marionette.port', 0);\n"
                                "user_pref('datareporting.policy.dataSubmissionEnabled', false);\n"
                                "user_pref('toolkit.telemetry.reportingpolicy.firstRun', false);\n"
                                "user_pref('browser.shell.checkDefaultBrowser', false);\n"
                                "user_pref('browser.startup.page', 0);\n"
                                "user_pref('browser.startup.homepage_override.mstone', 'ignore');\n"
                                "user_pref('app.update.enabled', false);\n"
                                "user_pref('network.captive-portal-service.enabled', false);\n"
                                "user_pref('network.connectivity-service.enabled', false);\n"
                                "user_pref('media.volume_scale', '0.0');\n"
                                "user_pref('intl.accept_languages', 'en-US, en');\n";

class Firefox : public Browser
{
public:
    Firefox();
    ~Firefox() override
    {
        m_process.end();
        m_sound.end();
        // Its helpers write into the profile for a moment longer.
        (void)e2e::waitFor([&] { return QDir(m_profile.path()).removeRecursively(); });
    }

    [[nodiscard]] bool isReady() const override { return m_isReady; }
    [[nodiscard]] QString name() const override { return u"Firefox"_s; }
    void open(const QString& address) override;
    [[nodiscard]] QJsonValue evaluate(const QString& expression) override;
    void press(const BrowserKeyPress& key) override;
    using Browser::press;
    void click(QPoint place) override { point(u"mouse"_s, place); }
    void tap(QPoint place) override { point(u"touch"_s, place); }
    void resize(QSize size, bool isPhone) override;
    [[nodiscard]] QByteArray screenshot() override;
    [[nodiscard]] QStringList complaints() override;

private:
    void startSound();
    void startProcess();
    void connectTo();
    [[nodiscard]] QJsonArray readMessage();
    QJsonValue call(const QString& command, const QJsonObject& parameters = {});
    QJsonValue chrome(const QString& script);
    void act(const QJsonObject& source);
    void point(const QString& kind, QPoint place);

    QTemporaryDir m_profile;
    e2e::OwnedProcess m_sound;
    e2e::OwnedProcess m_process;
    QTcpSocket m_socket;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    int m_last = 0;
    bool m_isReady = false;
};

} // namespace

Firefox::Firefox()
{
    startSound();
    startProcess();
    connectTo();
    const QJsonObject prompts = {{u"unhandledPromptBehavior"_s, u"ignore"_s}};
    m_isReady = m_socket.state() == QAbstractSocket::ConnectedState &&
                call(u"WebDriver:NewSession"_s, {{u"capabilities"_s, prompts}}).isObject();
}

/// Without a loudspeaker it takes every clip that has no picture for spoilt.
void Firefox::startSound()
{
    m_environment.insert(u"HOME"_s, m_profile.path());
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, m_profile.path());
    const QString socket = m_profile.filePath(u"sound"_s);
    m_sound.setProcessEnvironment(m_environment);
    m_sound.setStandardErrorFile(QProcess::nullDevice());
    m_sound.setStandardOutputFile(QProcess::nullDevice());
    m_sound.start(u"pulseaudio"_s,
                  {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                   u"--disable-shm=yes"_s,
                   u"--load=module-null-sink sink_name=speaker rate=48000"_s,
                   u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket});
    m_environment.insert(u"PULSE_SERVER"_s, u"unix:"_s + socket);
    (void)e2e::waitFor(
        [&] { return QFileInfo::exists(socket) || m_sound.state() == QProcess::NotRunning; });
}

void Firefox::startProcess()
{
    QFile preferences(m_profile.filePath(u"user.js"_s));
    if (preferences.open(QIODevice::WriteOnly)) {
        preferences.write(kPreferences);
    }
    preferences.close();
    m_process.setProcessEnvironment(m_environment);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.start(u"firefox-esr"_s,
                    {u"--headless"_s, u"--no-remote"_s, u"--marionette"_s,
                     u"--remote-allow-system-access"_s, u"--profile"_s, m_profile.path()});
    (void)m_process.waitForStarted();
}

void Firefox::connectTo()
{
    QFile port(m_profile.filePath(u"MarionetteActivePort"_s));
    const bool isThere = e2e::waitFor([&] {
        return (port.exists() && port.size() > 0) || m_process.state() == QProcess::NotRunning;
    });
    if (isThere && port.open(QIODevice::ReadOnly)) {
        m_socket.connectToHost(u"127.0.0.1"_s, port.readAll().trimmed().toUShort());
        (void)m_socket.waitForConnected();
        (void)readMessage(); // it introduces itself
    }
}

QJsonArray Firefox::readMessage()
{
    const auto ready = [&](auto condition) {
        return e2e::waitFor(
            [&] { return condition() || m_socket.state() != QAbstractSocket::ConnectedState; });
    };
    QByteArray head;
    const bool hasHead = ready([&] {
        head = m_socket.peek(16);
        return head.contains(':');
    });
    if (!hasHead || !head.contains(':')) {
        return {};
    }
    const qint64 length = head.left(head.indexOf(':')).toLongLong();
    m_socket.skip(head.indexOf(':') + 1);
    (void)ready([&] { return m_socket.bytesAvailable() >= length; });
    const QJsonDocument message = QJsonDocument::fromJson(m_socket.read(length));
    return message.array();
}

QJsonValue Firefox::call(const QString& command, const QJsonObject& parameters)
{
    const QJsonArray message = {0, ++m_last, command, parameters};
    const QByteArray bytes = QJsonDocument(message).toJson(QJsonDocument::Compact);
    m_socket.write(QByteArray::number(bytes.size()) + ':' + bytes);
    m_socket.flush();
    const QJsonArray answer = readMessage();
    if (answer.at(2).isObject()) {
        qWarning() << "Firefox:" << command << answer.at(2);
    }
    return answer.at(3);
}

void Firefox::open(const QString& address)
{
    chrome(u"Services.console.reset();"_s);
    call(u"WebDriver:Navigate"_s, {{u"url"_s, address}});
}

QJsonValue Firefox::evaluate(const QString& expression)
{
    const QString script =
        u"const [done] = arguments; Promise.resolve(window.eval ? (%1) : null).then(done);"_s.arg(
            expression);
    return call(u"WebDriver:ExecuteAsyncScript"_s,
                {{u"script"_s, script}, {u"args"_s, QJsonArray()}})
        .toObject()[u"value"_s];
}

QJsonValue Firefox::chrome(const QString& script)
{
    call(u"Marionette:SetContext"_s, {{u"value"_s, u"chrome"_s}});
    const QJsonValue value =
        call(u"WebDriver:ExecuteScript"_s, {{u"script"_s, script}, {u"args"_s, QJsonArray()}})
            .toObject()[u"value"_s];
    call(u"Marionette:SetContext"_s, {{u"value"_s, u"content"_s}});
    return value;
}

void Firefox::act(const QJsonObject& source)
{
    call(u"WebDriver:PerformActions"_s, {{u"actions"_s, QJsonArray{source}}});
}

void Firefox::press(const BrowserKeyPress& press)
{
    QStringList keys;
    if (press.ctrl) {
        keys.append(u"Control"_s);
    }
    if (press.shift) {
        keys.append(u"Shift"_s);
    }
    keys.append(press.key);
    QJsonArray actions;
    for (const QString& key : keys) {
        actions.append(keyAction(u"keyDown"_s, key));
    }
    for (auto key = keys.crbegin(); key != keys.crend(); ++key) {
        actions.append(keyAction(u"keyUp"_s, *key));
    }
    act({{u"type"_s, u"key"_s}, {u"id"_s, u"keyboard"_s}, {u"actions"_s, actions}});
}

void Firefox::point(const QString& kind, QPoint place)
{
    const QJsonArray actions = {
        QJsonObject{{u"type"_s, u"pointerMove"_s}, {u"x"_s, place.x()}, {u"y"_s, place.y()}},
        QJsonObject{{u"type"_s, u"pointerDown"_s}, {u"button"_s, 0}},
        QJsonObject{{u"type"_s, u"pointerUp"_s}, {u"button"_s, 0}}};
    act({{u"type"_s, u"pointer"_s},
         {u"id"_s, kind},
         {u"parameters"_s, QJsonObject{{u"pointerType"_s, kind}}},
         {u"actions"_s, actions}});
}

// The window has edges of its own around the page.
void Firefox::resize(QSize size, bool /*isPhone*/)
{
    const QJsonArray edges =
        evaluate(u"[outerWidth - innerWidth, outerHeight - innerHeight]"_s).toArray();
    call(u"WebDriver:SetWindowRect"_s, {{u"width"_s, size.width() + edges.at(0).toInt()},
                                        {u"height"_s, size.height() + edges.at(1).toInt()}});
}

QByteArray Firefox::screenshot()
{
    const QJsonValue answer = call(u"WebDriver:TakeScreenshot"_s, {{u"full"_s, false}});
    return QByteArray::fromBase64(answer.toObject()[u"value"_s].toString().toLatin1());
}

QStringList Firefox::complaints()
{
    const QJsonArray messages =
        chrome(u"return Services.console.getMessageArray()"
               ".filter(m => m instanceof Ci.nsIScriptError && !(m.flags & 1)"
               "  && /^(file|http):/.test(m.sourceName))"
               ".map(m => m.errorMessage + ' ' + m.sourceName);"_s)
            .toArray();
    QStringList complaints;
    for (const QJsonValue& message : messages) {
        complaints.append(message.toString());
    }
    return complaints;
}

std::unique_ptr<Browser> startFirefox()
{
    return std::make_unique<Firefox>();
}

} // namespace orvanta::test
