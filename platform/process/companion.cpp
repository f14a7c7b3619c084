#include "platform/process/companion.h"

#include "core/log.h"
#include "core/run_time_error.h"
#include "platform/process/application_folder.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QProcessEnvironment>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QUrl>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// What the child does between its birth and its program: nothing of ours may reach it.
class SpawnPlan
{
public:
    SpawnPlan()
    {
        posix_spawn_file_actions_init(&m_files);
        posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_adddup2(&m_files, STDIN_FILENO, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&m_files, STDIN_FILENO, STDERR_FILENO);
        // Libraries open descriptors without asking anybody to close them in a child.
        posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF |
                                                    POSIX_SPAWN_SETSIGMASK);
        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
    }
    ~SpawnPlan()
    {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_files);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    /// words: the program's file, then its arguments. Returns an error number, 0 for none.
    int run(std::vector<QByteArray> words, QByteArrayList variables, pid_t* child) const
    {
        std::vector<char*> arguments = pointersTo(words);
        std::vector<char*> environment = pointersTo(variables);
        return ::posix_spawn(child, arguments.front(), &m_files, &m_attributes, arguments.data(),
                             environment.data());
    }

private:
    template <typename List> static std::vector<char*> pointersTo(List& texts)
    {
        std::vector<char*> pointers;
        pointers.reserve(static_cast<std::size_t>(texts.size()) + 1);
        for (QByteArray& text : texts) {
            pointers.push_back(text.data());
        }
        pointers.push_back(nullptr);
        return pointers;
    }

    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

/// Nobody waits for the child, but its remains are to be cleared away once it has ended.
static void reapWhenEnded(pid_t child)
{
    // By number: the C library's own declaration of it is none for C++ in every release.
    const auto handle = static_cast<int>(::syscall(SYS_pidfd_open, child, 0U));
    if (handle < 0 || QCoreApplication::instance() == nullptr) {
        return; // it is cleared away when this program ends
    }
    auto* ended = new QSocketNotifier(handle, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(ended, &QSocketNotifier::activated, ended, [=] {
        ended->setEnabled(false);
        ::waitpid(child, nullptr, WNOHANG);
        ::close(handle);
        ended->deleteLater();
    });
}

static QByteArrayList environmentOf(const QProcessEnvironment& variables)
{
    QByteArrayList lines;
    for (const QString& line : variables.toStringList()) {
        lines.append(line.toLocal8Bit());
    }
    return lines;
}

/// The child's process id; nothing, with errno set, when the program cannot be run.
static std::optional<qint64> spawn(const QStringList& words, const QProcessEnvironment& variables)
{
    std::vector<QByteArray> encoded;
    encoded.reserve(static_cast<std::size_t>(words.size()));
    for (const QString& word : words) {
        encoded.push_back(QFile::encodeName(word));
    }
    pid_t child = 0;
    errno = SpawnPlan().run(std::move(encoded), environmentOf(variables), &child);
    if (errno != 0) {
        qCInfo(logDesktop, "%ls cannot be run: %s", qUtf16Printable(words.first()),
               std::strerror(errno));
        return std::nullopt;
    }
    reapWhenEnded(child);
    qCInfo(logDesktop, "started %ls", qUtf16Printable(words.join(u' ')));
    return child;
}

/// A second launch by the companion must find the same settings, whatever folder is current then.
static QProcessEnvironment environmentOfCompanion(const QString& applicationFolder,
                                                  const QStringList& documents)
{
    QStringList addresses;
    for (const QString& document : documents) {
        addresses.append(QString::fromLatin1(QUrl::fromLocalFile(document).toEncoded()));
    }
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"ORVANTA_HOME"_s, applicationFolder);
    variables.insert(u"ORVANTA_PROGRAM"_s, QCoreApplication::applicationFilePath());
    variables.remove(u"ORVANTA_DOCUMENTS"_s);
    if (!addresses.isEmpty()) {
        variables.insert(u"ORVANTA_DOCUMENTS"_s, addresses.join(u' '));
    }
    return variables;
}

qint64 startCompanion(const QString& applicationFolder, const QString& name,
                      const QStringList& documents)
{
    const QString file = installedProgram(applicationFolder, name);
    if (file.isEmpty()) {
        qCInfo(logDesktop, "there is no program %ls", qUtf16Printable(name));
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    const auto child = spawn({file}, environmentOfCompanion(applicationFolder, documents));
    if (!child) {
        throw RuntimeError(errno == ENOENT ? ErrorNumber::FileNotFound
                                           : ErrorNumber::InvalidProcedureCall);
    }
    return *child;
}

bool openAddress(const QUrl& address)
{
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (opener.isEmpty()) {
        return QDesktopServices::openUrl(address);
    }
    const QStringList words = {opener, address.toString(QUrl::FullyEncoded)};
    return spawn(words, QProcessEnvironment::systemEnvironment()).has_value();
}

} // namespace orvanta
