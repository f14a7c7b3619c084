// Chromium by its own protocol over two pipes: messages of JSON, each ended by a zero byte.
#include "tests/e2e/support/owned_process.h"
#include "tests/support/browser/browser.h"
#include "tests/support/plain_user.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>
#include <QTemporaryDir>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

/// Two ends above the numbers that the browser reads and writes.
struct Pipe
{
    Pipe()
    {
        std::array<int, 2> ends = {-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC) == 0) {
            reading = ::fcntl(ends[0], F_DUPFD_CLOEXEC, 10);
            writing = ::fcntl(ends[1], F_DUPFD_CLOEXEC, 10);
            ::close(ends[0]);
            ::close(ends[1]);
        }
    }
    ~Pipe()
    {
        ::close(reading);
        ::close(writing);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int reading = -1;
    int writing = -1;
};

struct KeyRow
{
    QStringView key;
    QStringView code;
    int number; // of Windows' virtual keys
};

constexpr std::array kKeys{
    KeyRow{u" ", u"Space", 32},
    KeyRow{u"Enter", u"Enter", 13},
    KeyRow{u"PageDown", u"PageDown", 34},
    KeyRow{u"PageUp", u"PageUp", 33},
    KeyRow{u"Backspace", u"Backspace", 8},
    KeyRow{u"ArrowLeft", u"ArrowLeft", 37},
    KeyRow{u"ArrowRight", u"ArrowRight", 39},
    KeyRow{u"ArrowUp", u"ArrowUp", 38},
    KeyRow{u"ArrowDown", u"ArrowDown", 40},
    KeyRow{u"Home", u"Home", 36},
    KeyRow{u"End", u"End", 35},
    KeyRow{u"Tab", u"Tab", 9},
    KeyRow{u"Escape", u"Escape", 27},
    KeyRow{u"F1", u"F1", 112},
    KeyRow{u"F3", u"F3", 114},
    KeyRow{u"F6", u"F6", 117},
    KeyRow{u"F7", u"F7", 118},
    KeyRow{u"F8", u"F8", 119},
    KeyRow{u"F9", u"F9", 120},
    KeyRow{u"F11", u"F11", 122},
};

QJsonObject keyEvent(const BrowserKeyPress& press)
{
    const auto row = std::ranges::find(kKeys, press.key, &KeyRow::key);
    const bool isNamed = row != kKeys.end();
    const QChar letter = press.key.back().toUpper();
    const QString code = isNamed ? row->code.toString() : u"Key"_s + letter;
    QJsonObject event = {{u"key"_s, press.key},
                         {u"code"_s, code},
                         {u"windowsVirtualKeyCode"_s, isNamed ? row->number : letter.unicode()},
                         {u"modifiers"_s, (press.ctrl ? 2 : 0) + (press.shift ? 8 : 0)}};
    const bool types = press.key.size() == 1 && !press.ctrl;
    event[u"type"_s] = types || press.key == u"Enter" ? u"keyDown"_s : u"rawKeyDown"_s;
    if (types) {
        event[u"text"_s] = press.key;
    } else if (press.key == u"Enter") {
        event[u"text"_s] = u"\r"_s;
    }
    return event;
}

class Chromium : public Browser
{
public:
    explicit Chromium(bool isPlainUser);
    ~Chromium() override;

    [[nodiscard]] bool isReady() const override { return !m_session.isEmpty(); }
    [[nodiscard]] QString name() const override { return u"Chromium"_s; }
    void open(const QString& address) override;
    [[nodiscard]] QJsonValue evaluate(const QString& expression) override;
    void press(const BrowserKeyPress& key) override;
    using Browser::press;
    void click(QPoint place) override;
    void tap(QPoint place) override;
    void resize(QSize size, bool isPhone) override;
    [[nodiscard]] QByteArray screenshot() override;
    [[nodiscard]] QStringList complaints() override { return m_complaints; }

    QJsonObject ask(const QString& method, const QJsonObject& parameters) override
    {
        return call(method, parameters);
    }

private:
    /// A command of the protocol in the page; what it answers.
    QJsonObject call(const QString& method, const QJsonObject& parameters = {});
    void startProcess();
    void attach();
    void read();
    void take(const QJsonObject& message);
    void takeEvent(const QString& method, const QJsonObject& parameters);
    void mouse(const QString& type, QPoint place);

    bool m_leavesRights; // of an administrator
    QTemporaryDir m_profile;
    Pipe m_toBrowser;
    Pipe m_fromBrowser;
    e2e::OwnedProcess m_process;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_unread;
    QHash<int, QJsonObject> m_answers;
    QString m_session;
    QStringList m_complaints;
    int m_last = 0;
    bool m_isLoaded = false;
};

} // namespace

Chromium::Chromium(bool isPlainUser)
    : m_leavesRights(isPlainUser && ::geteuid() == 0)
{
    ::signal(SIGPIPE, SIG_IGN); // a browser that has died is seen by its silence
    startProcess();
    m_notifier = std::make_unique<QSocketNotifier>(m_fromBrowser.reading, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, &m_process, [this] { read(); });
    ::fcntl(m_fromBrowser.reading, F_SETFL, O_NONBLOCK);
    attach();
}

Chromium::~Chromium()
{
    m_process.end();
    // Its helpers write into the profile for a moment longer.
    (void)e2e::waitFor([&] { return QDir(m_profile.path()).removeRecursively(); });
}

void Chromium::startProcess()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, m_profile.path());
    m_process.setProcessEnvironment(environment);
    if (m_leavesRights) {
        EXPECT_EQ(::chown(QFile::encodeName(m_profile.path()).constData(), kNobody, kNobody), 0);
    }
    m_process.setChildProcessModifier(
        [in = m_toBrowser.reading, out = m_fromBrowser.writing, leavesRights = m_leavesRights] {
            if (leavesRights && !becomePlainUser()) {
                ::_exit(1);
            }
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::dup2(in, 3);
            ::dup2(out, 4);
        });
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.start(
        u"chromium"_s,
        {u"--headless=new"_s, u"--no-sandbox"_s, u"--disable-gpu"_s, u"--disable-dev-shm-usage"_s,
         u"--no-first-run"_s, u"--disable-background-networking"_s, u"--disable-component-update"_s,
         u"--mute-audio"_s, u"--force-prefers-reduced-motion"_s, u"--lang=en-US"_s,
         u"--remote-debugging-pipe"_s, u"--user-data-dir="_s + m_profile.path(), u"about:blank"_s});
    (void)m_process.waitForStarted();
}

void Chromium::attach()
{
    QString page;
    const bool isThere = e2e::waitFor([&] {
        const QJsonArray targets = call(u"Target.getTargets"_s).value(u"targetInfos"_s).toArray();
        for (const auto& target : targets) {
            if (target[u"type"_s] == u"page"_s) {
                page = target[u"targetId"_s].toString();
            }
        }
        return !page.isEmpty() || m_process.state() == QProcess::NotRunning;
    });
    if (!isThere || page.isEmpty()) {
        return;
    }
    m_session = call(u"Target.attachToTarget"_s, {{u"targetId"_s, page}, {u"flatten"_s, true}})
                    .value(u"sessionId"_s)
                    .toString();
    for (const auto& domain : {u"Page"_s, u"Runtime"_s, u"Log"_s}) {
        call(domain + u".enable"_s);
    }
}

QJsonObject Chromium::call(const QString& method, const QJsonObject& parameters)
{
    const int number = ++m_last;
    QJsonObject message = {{u"id"_s, number}, {u"method"_s, method}, {u"params"_s, parameters}};
    if (!m_session.isEmpty()) {
        message[u"sessionId"_s] = m_session;
    }
    const QByteArray bytes = QJsonDocument(message).toJson(QJsonDocument::Compact) + '\0';
    if (::write(m_toBrowser.writing, bytes.constData(), std::size_t(bytes.size())) !=
        bytes.size()) {
        return {};
    }
    (void)e2e::waitFor(
        [&] { return m_answers.contains(number) || m_process.state() == QProcess::NotRunning; });
    return m_answers.take(number);
}

void Chromium::read()
{
    std::array<char, 1 << 16> buffer;
    ssize_t count = 0;
    while ((count = ::read(m_fromBrowser.reading, buffer.data(), buffer.size())) > 0) {
        m_unread.append(buffer.data(), count);
    }
    for (qsizetype end = m_unread.indexOf('\0'); end >= 0; end = m_unread.indexOf('\0')) {
        const QByteArray message = m_unread.left(end);
        m_unread.remove(0, end + 1);
        take(QJsonDocument::fromJson(message).object());
    }
}

void Chromium::take(const QJsonObject& message)
{
    if (message.contains(u"id"_s)) {
        m_answers[message[u"id"_s].toInt()] = message[u"result"_s].toObject();
    } else {
        takeEvent(message[u"method"_s].toString(), message[u"params"_s].toObject());
    }
}

void Chromium::takeEvent(const QString& method, const QJsonObject& parameters)
{
    if (method == u"Page.loadEventFired") {
        m_isLoaded = true;
    } else if (method == u"Runtime.exceptionThrown") {
        m_complaints += QString::fromUtf8(QJsonDocument(parameters).toJson());
    } else if (method == u"Log.entryAdded") {
        const QJsonObject entry = parameters[u"entry"_s].toObject();
        if (entry[u"level"_s] == u"error"_s) {
            m_complaints += entry[u"text"_s].toString();
        }
    }
}

void Chromium::open(const QString& address)
{
    m_complaints.clear();
    m_isLoaded = false;
    call(u"Page.navigate"_s, {{u"url"_s, address}});
    (void)e2e::waitFor([&] { return m_isLoaded; });
}

QJsonValue Chromium::evaluate(const QString& expression)
{
    const QJsonObject answer = call(
        u"Runtime.evaluate"_s,
        {{u"expression"_s, expression}, {u"returnByValue"_s, true}, {u"awaitPromise"_s, true}});
    if (answer.contains(u"exceptionDetails"_s)) {
        m_complaints += QString::fromUtf8(QJsonDocument(answer).toJson());
    }
    return answer[u"result"_s].toObject()[u"value"_s];
}

void Chromium::press(const BrowserKeyPress& key)
{
    QJsonObject event = keyEvent(key);
    call(u"Input.dispatchKeyEvent"_s, event);
    event[u"type"_s] = u"keyUp"_s;
    event.remove(u"text"_s);
    call(u"Input.dispatchKeyEvent"_s, event);
}

void Chromium::mouse(const QString& type, QPoint place)
{
    call(u"Input.dispatchMouseEvent"_s, {{u"type"_s, type},
                                         {u"x"_s, place.x()},
                                         {u"y"_s, place.y()},
                                         {u"button"_s, u"left"_s},
                                         {u"clickCount"_s, 1}});
}

void Chromium::click(QPoint place)
{
    mouse(u"mousePressed"_s, place);
    mouse(u"mouseReleased"_s, place);
}

void Chromium::tap(QPoint place)
{
    const QJsonObject point = {{u"x"_s, place.x()}, {u"y"_s, place.y()}};
    call(u"Input.dispatchTouchEvent"_s,
         {{u"type"_s, u"touchStart"_s}, {u"touchPoints"_s, QJsonArray{point}}});
    call(u"Input.dispatchTouchEvent"_s,
         {{u"type"_s, u"touchEnd"_s}, {u"touchPoints"_s, QJsonArray()}});
}

void Chromium::resize(QSize size, bool isPhone)
{
    call(u"Emulation.setDeviceMetricsOverride"_s, {{u"width"_s, size.width()},
                                                   {u"height"_s, size.height()},
                                                   {u"deviceScaleFactor"_s, isPhone ? 2 : 1},
                                                   {u"mobile"_s, isPhone}});
    call(u"Emulation.setTouchEmulationEnabled"_s, {{u"enabled"_s, isPhone}});
}

QByteArray Chromium::screenshot()
{
    const QJsonObject answer = call(u"Page.captureScreenshot"_s, {{u"format"_s, u"png"_s}});
    return QByteArray::fromBase64(answer[u"data"_s].toString().toLatin1());
}

std::unique_ptr<Browser> startChromium()
{
    return std::make_unique<Chromium>(false);
}

std::unique_ptr<Browser> startChromiumAsPlainUser()
{
    return std::make_unique<Chromium>(true);
}

} // namespace orvanta::test
