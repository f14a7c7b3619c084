#include "platform/file_types/desktop_entries.h"

#include "platform/file_types/default_applications.h"
#include "platform/file_types/desktop_files.h"
#include "platform/file_types/desktop_folders.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

// Resources of a static library are linked in only when somebody asks; outside any namespace.
static void initTemplates()
{
    Q_INIT_RESOURCE(registration);
}

namespace orvanta {

using namespace Qt::StringLiterals;

/// Some launchers do not know about quotes at all: a path that needs none gets none.
static bool isPlain(const QString& path)
{
    return std::all_of(path.begin(), path.end(),
                       [](QChar c) { return c.isLetterOrNumber() || u"/._-+,:=@"_s.contains(c); });
}

QByteArray execQuoted(const QString& path)
{
    if (isPlain(path)) {
        return path.toUtf8();
    }
    QByteArray quoted = "\"";
    for (const char c : path.toUtf8()) {
        switch (c) {
        case '\\': // escaped once for the quotes and once more for the file's own syntax
            quoted += "\\\\\\\\";
            break;
        case '"':
        case '`':
        case '$':
            quoted += "\\\\";
            quoted += c;
            break;
        case '%': // begins a field code
            quoted += "%%";
            break;
        default:
            quoted += c;
        }
    }
    return quoted + '"';
}

QByteArray shellQuoted(const QString& path)
{
    return '\'' + path.toUtf8().replace('\'', "'\\''") + '\'';
}

static QByteArray resource(const QString& name)
{
    initTemplates();
    QFile file(u":/orvanta/registration/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

static QString applicationFile()
{
    return DesktopFolders::dataHome() + u"/applications/"_s + QLatin1StringView(kOwnDesktopEntry);
}

static QString autostartFile()
{
    return DesktopFolders::configHome() + u"/autostart/"_s + QLatin1StringView(kOwnDesktopEntry);
}

/// "video/mpeg;audio/mpeg;"
static QByteArray typeList(const QByteArrayList& types)
{
    return types.isEmpty() ? QByteArray() : types.join(';') + ';';
}

DesktopEntries::DesktopEntries(QString executable, QString home)
    : m_executable(std::move(executable)),
      m_home(std::move(home))
{}

QByteArray DesktopEntries::environment() const
{
    return m_home.isEmpty() ? QByteArray() : "env " + execQuoted(u"ORVANTA_HOME="_s + m_home) + ' ';
}

QByteArray DesktopEntries::execCommand() const
{
    return environment() + execQuoted(m_executable);
}

/// KDE's file manager does not ask for TryExec in service menus: the menu itself looks whether the
/// program is still there, and removes itself when it is not.
QByteArray DesktopEntries::menuCommand(const QString& menu) const
{
    const QString command = uR"([ -x "$1" ] || exec rm -f -- "$0"; exec "$@")"_s;
    return environment() + "sh -c " + execQuoted(command) + ' ' + execQuoted(menu) + ' ' +
           execQuoted(m_executable);
}

QByteArray DesktopEntries::shellCommand() const
{
    const QByteArray program = shellQuoted(m_executable);
    return m_home.isEmpty() ? program : "ORVANTA_HOME=" + shellQuoted(m_home) + ' ' + program;
}

QByteArray DesktopEntries::filled(const QString& name) const
{
    const QByteArray plain = m_executable.toUtf8().replace('\\', "\\\\");
    return resource(name)
        .replace("@EXEC@", execCommand())
        .replace("@TRY_EXEC@", plain)
        .replace("@SHELL_PROGRAM@", shellQuoted(m_executable))
        .replace("@SHELL_COMMAND@", shellCommand());
}

/// An installed program has its icon in one of the system's folders.
static void writeIconWhereNoneIsInstalled()
{
    const QString icon = u"/icons/hicolor/scalable/apps/orvanta.svg"_s;
    for (const QString& folder : DesktopFolders::dataFolders()) {
        if (QFileInfo::exists(folder + icon)) {
            return;
        }
    }
    replaceFile(DesktopFolders::dataHome() + icon, resource(u"orvanta.svg"_s));
}

/// The entry of an installed program, which the user's own hides from the desktop.
static QByteArray installedEntry()
{
    const QStringList folders = DesktopFolders::dataFolders().mid(1);
    for (const QString& folder : folders) {
        QByteArray entry =
            contentOf(folder + u"/applications/"_s + QLatin1StringView(kOwnDesktopEntry));
        if (!entry.isEmpty()) {
            return entry;
        }
    }
    return {};
}

/// Its names, translations and actions, with this program's command and with these types besides
/// its own.
QByteArray DesktopEntries::adapted(const QByteArray& entry, QByteArrayList types) const
{
    QByteArrayList lines = entry.split('\n');
    qsizetype end = 1; // of the first group
    while (end < lines.size() && !lines[end].startsWith('[')) {
        ++end;
    }
    qsizetype typesLine = -1;
    for (qsizetype i = 1; i < end; ++i) {
        if (lines[i].startsWith("Exec=")) {
            lines[i] = "Exec=" + execCommand() + " %F";
        } else if (lines[i].startsWith("TryExec=")) {
            lines[i] = "TryExec=" + m_executable.toUtf8().replace('\\', "\\\\");
        } else if (lines[i].startsWith("MimeType=")) {
            typesLine = i;
        }
    }
    if (typesLine < 0) {
        typesLine = 1;
        lines.insert(typesLine, "MimeType=");
    }
    for (const QByteArray& type : lines[typesLine].mid(9).trimmed().split(';')) {
        if (!type.isEmpty() && !types.contains(type)) {
            types.append(type);
        }
    }
    lines[typesLine] = "MimeType=" + typeList(types);
    return lines.join('\n');
}

bool DesktopEntries::writeApplication(const QByteArrayList& types) const
{
    const QByteArray installed = installedEntry();
    const QByteArray entry =
        installed.startsWith("[Desktop Entry]")
            ? adapted(installed, types)
            : filled(u"application.desktop"_s).replace("@TYPES@", typeList(types));
    writeIconWhereNoneIsInstalled();
    return contentOf(applicationFile()) != entry && replaceFile(applicationFile(), entry);
}

bool DesktopEntries::hasApplication()
{
    return QFileInfo::exists(applicationFile());
}

void DesktopEntries::writeAutostart() const
{
    replaceFile(autostartFile(), filled(u"autostart.desktop"_s));
}

void DesktopEntries::removeAutostart()
{
    removeFile(autostartFile());
}

bool DesktopEntries::hasAutostart()
{
    const QByteArrayList lines = contentOf(autostartFile()).split('\n');
    return lines.size() > 1 && !lines.contains("Hidden=true") &&
           !lines.contains("X-GNOME-Autostart-enabled=false");
}

static bool isProgramThere(const QString& program)
{
    return !QStandardPaths::findExecutable(program).isEmpty();
}

static const QString& serviceMenu()
{
    static const QString kName = u"/kio/servicemenus/orvanta-play-clips.desktop"_s;
    return kName;
}

/// The package brings one for everybody; a second one would stand beside it.
static bool isServiceMenuInstalled()
{
    const QStringList folders = DesktopFolders::dataFolders().mid(1);
    return std::any_of(folders.begin(), folders.end(), [](const QString& folder) {
        return QFileInfo::exists(folder + serviceMenu());
    });
}

void DesktopEntries::writeFolderCommand() const
{
    const QString data = DesktopFolders::dataHome();
    const QByteArray script = filled(u"folder_script.sh"_s);
    const std::pair<QString, QString> managers[] = {
        {u"nautilus"_s, data + u"/nautilus/scripts/Play clips"_s},
        {u"nemo"_s, data + u"/nemo/scripts/Play clips"_s},
        {u"caja"_s, DesktopFolders::configHome() + u"/caja/scripts/Play clips"_s}};
    for (const auto& [manager, file] : managers) {
        if (isProgramThere(manager)) {
            replaceFile(file, script, FileMode::Executable);
        }
    }
    if (isServiceMenuInstalled()) {
        removeFile(data + serviceMenu()); // of a time before the package
    } else if (isProgramThere(u"dolphin"_s)) {
        // Service menus below the user's home are obeyed only when they are executable.
        const QString menu = data + serviceMenu();
        replaceFile(menu,
                    filled(u"service_menu.desktop"_s).replace("@MENU_COMMAND@", menuCommand(menu)),
                    FileMode::Executable);
    }
}

} // namespace orvanta
