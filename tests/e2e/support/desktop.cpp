#include "tests/e2e/support/desktop.h"

#include "tests/e2e/support/wait.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

Desktop::Desktop(DesktopOptions options)
    : m_screen(options.screen),
      m_environment(QProcessEnvironment::systemEnvironment())
{
    makeFolders();
    const bool ready = startDisplay() && startBus() &&
                       (!options.windowManager || startWindowManager()) &&
                       (options.compositor.isEmpty() || startCompositor(options.compositor)) &&
                       (!options.sound || startSound());
    Q_UNUSED(ready)
}

Desktop::~Desktop() = default;

void Desktop::makeFolders()
{
    const QDir root(m_folder.path());
    const std::pair<QString, QString> folders[] = {
        {u"HOME"_s, u"home"_s},
        {u"XDG_RUNTIME_DIR"_s, u"run"_s},
        {u"XDG_CONFIG_HOME"_s, u"home/.config"_s},
        {u"XDG_DATA_HOME"_s, u"home/.local/share"_s},
        {u"XDG_CACHE_HOME"_s, u"home/.cache"_s},
        {u"XDG_STATE_HOME"_s, u"home/.local/state"_s},
        {u"TMPDIR"_s, u"tmp"_s},
    };
    for (const auto& [variable, name] : folders) {
        root.mkpath(name);
        m_environment.insert(variable, root.filePath(name));
    }
    root.mkpath(u"files"_s);
    QFile::setPermissions(root.filePath(u"run"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.remove(u"WAYLAND_DISPLAY"_s);
    m_environment.remove(u"QT_QPA_PLATFORM"_s);
    // Whatever sound devices the machine has stay silent.
    m_environment.insert(u"PULSE_SERVER"_s, u"unix:/nonexistent"_s);
    m_environment.insert(u"ALSA_CONFIG_PATH"_s, u"/dev/null"_s);
    m_environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
}

QString Desktop::folder() const
{
    return m_folder.filePath(u"files"_s);
}

bool Desktop::fail(const QString& what)
{
    m_problem = what;
    return false;
}

std::unique_ptr<OwnedProcess> Desktop::launch(const QString& program, const QStringList& arguments)
{
    auto process = std::make_unique<OwnedProcess>();
    process->setProcessEnvironment(m_environment);
    process->setStandardErrorFile(m_folder.filePath(QFileInfo(program).fileName() + u".log"_s));
    process->start(program, arguments);
    return process;
}

bool Desktop::startDisplay()
{
    const QString screen = u"%1x%2x24"_s.arg(m_screen.width()).arg(m_screen.height());
    m_display = launch(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, screen,
                                   u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    const QByteArray number = m_display->readFirstLine();
    if (number.isEmpty()) {
        return fail(u"Xvfb does not start"_s);
    }
    m_environment.insert(u"DISPLAY"_s, u":"_s + QString::fromLatin1(number));
    return true;
}

bool Desktop::startBus()
{
    const QString address = u"--address=unix:path="_s + m_folder.filePath(u"run/bus"_s);
    m_bus = launch(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nosyslog"_s,
                                      u"--print-address=1"_s, address});
    const QByteArray printed = m_bus->readFirstLine();
    if (printed.isEmpty()) {
        return fail(u"dbus-daemon does not start"_s);
    }
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromLatin1(printed));
    return true;
}

QString Desktop::busAddress() const
{
    return m_environment.value(u"DBUS_SESSION_BUS_ADDRESS"_s);
}

bool Desktop::startWindowManager()
{
    m_windowManager = launch(u"openbox"_s, {u"--sm-disable"_s});
    const bool manages = waitFor([this] { return !run(u"wmctrl"_s, {u"-m"_s}).isEmpty(); });
    return manages || fail(u"openbox does not start"_s);
}

/// Programs started from now on are its clients.
bool Desktop::startCompositor(const QString& name)
{
    if (name.startsWith(u"sway"_s)) {
        return startSway(name == u"sway" ? u"headless"_s : u"x11"_s);
    }
    return startWeston(name);
}

/// On the backend "x11" its output fills the display, so that keys and clicks there reach it.
bool Desktop::startWeston(const QString& backend)
{
    const QString socket = u"wayland-test"_s;
    m_compositor =
        launch(u"weston"_s,
               {u"--no-config"_s, u"--idle-time=0"_s, u"--use-pixman"_s,
                u"--backend=%1-backend.so"_s.arg(backend), u"--socket="_s + socket,
                u"--width=%1"_s.arg(m_screen.width()), u"--height=%1"_s.arg(m_screen.height())});
    useWayland(socket);
    const bool serves =
        waitFor([&] { return QFileInfo::exists(m_folder.filePath(u"run/"_s + socket)); });
    return serves || fail(u"weston does not start"_s);
}

/// socket: a name in the session's folder, or a path.
void Desktop::useWayland(const QString& socket)
{
    m_environment.insert(u"WAYLAND_DISPLAY"_s, socket);
    m_environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    // What the display's libraries still hold at the end is reported as leaks of libraries that are
    // unloaded by then, which nothing can tell from the program's own. Under X11 these are found.
    m_environment.insert(u"ASAN_OPTIONS"_s,
                         m_environment.value(u"ASAN_OPTIONS"_s) + u":detect_leaks=0"_s);
}

/// Sway refuses to serve root: then it runs as an ordinary user, in a folder of that user's own.
bool Desktop::startSway(const QString& backend)
{
    constexpr int kNobody = 65534;
    const QString own = m_folder.filePath(u"sway"_s);
    QDir().mkpath(own);
    QFile config(own + u"/config"_s);
    if (!config.open(QIODevice::WriteOnly)) {
        return fail(u"no folder for sway"_s);
    }
    config.write("xwayland disable\n"
                 "focus_on_window_activation focus\n"
                 "output * resolution 1280x800 background #0000ff solid_color\n");
    config.close();
    QStringList command = {u"env"_s,
                           u"XDG_RUNTIME_DIR="_s + own,
                           u"HOME="_s + own,
                           u"WLR_BACKENDS="_s + backend,
                           u"WLR_LIBINPUT_NO_DEVICES=1"_s,
                           u"WLR_RENDERER=pixman"_s,
                           u"sway"_s,
                           u"--config"_s,
                           config.fileName()};
    if (::geteuid() == 0) {
        const QString user = QString::number(kNobody);
        command = QStringList{u"setpriv"_s, u"--reuid="_s + user, u"--regid="_s + user,
                              u"--clear-groups"_s} +
                  command;
        ::chmod(m_folder.path().toLocal8Bit().constData(), 0711);
        if (::chown(own.toLocal8Bit().constData(), kNobody, kNobody) != 0) {
            return fail(u"no folder for sway's user"_s);
        }
    }
    ::chmod(own.toLocal8Bit().constData(), 0700);
    m_compositor = launch(command.first(), command.mid(1));
    const QString socket = own + u"/wayland-1"_s;
    useWayland(socket);
    return waitFor([&] { return QFileInfo::exists(socket); }) || fail(u"sway does not start"_s);
}

QImage Desktop::screenOfSway()
{
    return QImage::fromData(run(u"grim"_s, {u"-t"_s, u"ppm"_s, u"-"_s}));
}

bool Desktop::startSound()
{
    const QString socket = m_folder.filePath(u"run/sound"_s);
    m_sound =
        launch(u"pulseaudio"_s,
               {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                u"--disable-shm=yes"_s, u"--load=module-null-sink sink_name=speaker rate=48000"_s,
                u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket});
    if (!waitFor([&] { return QFileInfo::exists(socket); })) {
        return fail(u"pulseaudio does not start"_s);
    }
    m_environment.insert(u"PULSE_SERVER"_s, u"unix:"_s + socket);
    return true;
}

QString Desktop::soundMonitor()
{
    return u"speaker.monitor"_s;
}

QByteArray Desktop::run(const QString& program, const QStringList& arguments)
{
    OwnedProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    process.waitForFinished(kPatienceMs);
    return process.readAllStandardOutput();
}

static QStringList moveTo(QPoint place)
{
    return {u"mousemove"_s, QString::number(place.x()), QString::number(place.y())};
}

void Desktop::click(QPoint place)
{
    run(u"xdotool"_s, moveTo(place) << u"click"_s << u"1"_s);
}

void Desktop::doubleClick(QPoint place)
{
    run(u"xdotool"_s, moveTo(place) << u"click"_s << u"--repeat"_s << u"2"_s << u"--delay"_s
                                    << u"40"_s << u"1"_s);
}

void Desktop::drag(const QList<QPoint>& places)
{
    QStringList hand = moveTo(places.first()) << u"mousedown"_s << u"1"_s;
    for (const QPoint place : places.mid(1)) {
        hand += moveTo(place);
    }
    run(u"xdotool"_s, hand << u"mouseup"_s << u"1"_s);
}

void Desktop::setKeyboard(const QString& layouts)
{
    run(u"setxkbmap"_s, {layouts});
}

void Desktop::press(const QString& key)
{
    run(u"xdotool"_s, {u"key"_s, key});
}

void Desktop::type(const QString& text)
{
    run(u"xdotool"_s, {u"type"_s, u"--delay"_s, u"5"_s, text});
}

void Desktop::pressPlace(int keyCode, bool shift)
{
    press((shift ? u"shift+"_s : QString()) + QString::number(keyCode));
}

void Desktop::moveMouse(QPoint place)
{
    run(u"xdotool"_s, moveTo(place));
}

void Desktop::holdButton(bool down)
{
    run(u"xdotool"_s, {down ? u"mousedown"_s : u"mouseup"_s, u"1"_s});
}

void Desktop::turnWheel(QPoint place, int notches)
{
    const QString button = notches > 0 ? u"4"_s : u"5"_s;
    run(u"xdotool"_s, moveTo(place)
                          << u"click"_s << u"--repeat"_s << QString::number(std::abs(notches))
                          << u"--delay"_s << u"1"_s << button);
}

QString Desktop::activeWindowTitle()
{
    return QString::fromUtf8(run(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowname"_s}))
        .trimmed();
}

bool Desktop::activate(const QString& title)
{
    return waitFor([&] {
        run(u"wmctrl"_s, {u"-F"_s, u"-a"_s, title});
        return activeWindowTitle() == title;
    });
}

// The splash has the main window's title, and may be known for a moment longer than the main window
// is shown.
QString Desktop::managedWindow(const QString& title)
{
    static const QRegularExpression spaces(u"\\s+"_s); // number, desktop, machine, title
    const QStringList lines = QString::fromUtf8(run(u"wmctrl"_s, {u"-l"_s})).split(u'\n');
    for (const QString& line : lines) {
        const QString number = line.section(spaces, 0, 0);
        if (line.section(spaces, 3) != title) {
            continue;
        }
        const QByteArray types = run(u"xprop"_s, {u"-id"_s, number, u"_NET_WM_WINDOW_TYPE"_s});
        if (types.contains("_TYPE_NORMAL") && !types.contains("_TYPE_SPLASH")) {
            return number;
        }
    }
    return {};
}

// A window that has just been shown is not in the window manager's list at once, and what is asked
// of it before is lost.
bool Desktop::askWindowManager(const QString& title, const QStringList& request)
{
    QString window;
    if (!waitFor([&] { return !(window = managedWindow(title)).isEmpty(); })) {
        return false;
    }
    run(u"wmctrl"_s, QStringList({u"-i"_s, request.front(), window}) + request.mid(1));
    return true;
}

bool Desktop::closeWindow(const QString& title)
{
    return askWindowManager(title, {u"-c"_s});
}

bool Desktop::resizeWindow(const QString& title, QSize size)
{
    const QString place = u"0,-1,-1,%1,%2"_s.arg(size.width()).arg(size.height());
    return askWindowManager(title, {u"-r"_s, u"-e"_s, place});
}

QByteArrayList Desktop::visibleWindowIds(const QStringList& search)
{
    const QByteArray found =
        run(u"xdotool"_s, QStringList({u"search"_s, u"--onlyvisible"_s}) + search).trimmed();
    return found.isEmpty() ? QByteArrayList() : found.split('\n');
}

int Desktop::visibleWindows(const QString& title)
{
    return static_cast<int>(visibleWindowIds({u"--name"_s, u"^"_s + title + u"$"_s}).size());
}

QStringList Desktop::windowsOfPrograms()
{
    QStringList windows;
    for (const QByteArray& id : visibleWindowIds({u"--class"_s, u"."_s})) {
        windows.append(QString::fromLatin1(id));
    }
    return windows;
}

QRect Desktop::placeOf(const QString& title)
{
    const QByteArrayList found = visibleWindowIds({u"--name"_s, u"^"_s + title + u"$"_s});
    return found.isEmpty() ? QRect() : placeOfWindow(QString::fromLatin1(found.first()));
}

QRect Desktop::placeOfWindow(const QString& window)
{
    // Not by xdotool, which counts a window's distance from its frame twice.
    const QByteArray found = run(u"xwininfo"_s, {u"-id"_s, window});
    const auto value = [&](const QByteArray& name) {
        const qsizetype begin = found.indexOf(name);
        return begin < 0 ? 0 : found.mid(begin + name.size()).split('\n').first().trimmed().toInt();
    };
    return {value("Absolute upper-left X:"), value("Absolute upper-left Y:"), value("Width:"),
            value("Height:")};
}

bool Desktop::showsWindowAt(QRect place)
{
    const QStringList windows = windowsOfPrograms();
    return std::any_of(windows.begin(), windows.end(),
                       [&](const QString& window) { return placeOfWindow(window) == place; });
}

int Desktop::openMenus()
{
    // The window manager takes every other window of a program into a frame of its own.
    const QByteArrayList ids = visibleWindowIds({u"--maxdepth"_s, u"1"_s, u"--class"_s, u"."_s});
    const auto count = std::count_if(ids.begin(), ids.end(), [this](const QByteArray& id) {
        const QByteArray type =
            run(u"xprop"_s, {u"-id"_s, QString::fromLatin1(id), u"_NET_WM_WINDOW_TYPE"_s});
        return type.contains("_NET_WM_WINDOW_TYPE") && !type.contains("TOOLTIP");
    });
    return static_cast<int>(count);
}

} // namespace orvanta::e2e
