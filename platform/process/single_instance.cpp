#include "platform/process/single_instance.h"

#include "core/log.h"
#include "platform/process/file_lock.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>

#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kConnectTimeMs = 500;
constexpr int kAnswerTimeMs = 5000; // a first that reads many packets serves no calls meanwhile
constexpr int kCallsWaiting = 128;
constexpr qint64 kLongestCall = 1 << 20; // bytes; a token is some dozens, a path some hundreds

// A call is any number of lines "open LINE" (percent-encoded) and one "raise TOKEN".
static const QByteArray kOpenCall = "open ";
static const QByteArray kRaiseCall = "raise ";
static const QByteArray kHeard = "heard\n";
constexpr char kSaid[] = "said"; // property of a call: what it has said so far

/// One name for each application folder. Without a folder of the session's own the socket lies in
/// the application folder: in one that everybody may write to, anybody could take the name first.
static QString socketName(const QString& folder)
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!QFileInfo(runtime).isDir()) {
        return QDir(folder).canonicalPath() + u"/instance.socket"_s;
    }
    const QByteArray path = QDir(folder).canonicalPath().toUtf8();
    const QByteArray digest = QCryptographicHash::hash(path, QCryptographicHash::Sha256);
    return runtime + u"/orvanta-"_s + QString::fromLatin1(digest.left(10).toHex());
}

/// Whether who listens at the other end is this user.
static bool isOfThisUser(const QLocalSocket& call)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    const int socket = static_cast<int>(call.socketDescriptor());
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

SingleInstance::SingleInstance(const QString& applicationFolder, QObject* parent)
    : QObject(parent),
      m_folder(applicationFolder),
      m_lock(std::make_unique<FileLock>(applicationFolder + u"/instance.lock"_s))
{
    if (m_lock->tryLock() == FileLock::Outcome::Busy) {
        m_lock.reset();
    }
}

SingleInstance::~SingleInstance()
{
    release();
}

void SingleInstance::listen(std::function<bool()> goesOn)
{
    m_goesOn = std::move(goesOn);
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    m_server->setListenBacklogSize(kCallsWaiting);
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::takeCall);
    const QString name = socketName(m_folder);
    QLocalServer::removeServer(name); // left behind by a killed first instance
    if (!m_server->listen(name)) {
        qCInfo(logErrors, "later launches cannot raise this one: %ls",
               qUtf16Printable(m_server->errorString()));
    }
}

void SingleInstance::takeCall()
{
    while (QLocalSocket* call = m_server->nextPendingConnection()) {
        call->setReadBufferSize(kLongestCall);
        connect(call, &QLocalSocket::disconnected, call, &QObject::deleteLater);
        connect(call, &QLocalSocket::readyRead, this, [this, call] { readCall(call); });
        readCall(call);
    }
}

/// Waits for the last line: whoever hands lines over has either handed over all or none.
void SingleInstance::readCall(QLocalSocket* call)
{
    QByteArray said = call->property(kSaid).toByteArray() + call->readAll();
    call->setProperty(kSaid, said);
    if (said.size() < kLongestCall && !said.endsWith('\n')) {
        return;
    }
    const QByteArrayList lines = said.trimmed().split('\n');
    const QByteArray last = lines.back() + ' ';
    if (said.size() < kLongestCall && last.startsWith(kOpenCall)) {
        return;
    }
    const bool answers = last.startsWith(kRaiseCall) && m_goesOn();
    if (answers) {
        call->write(kHeard);
        call->flush();
    }
    call->disconnectFromServer();
    if (answers) {
        handOver(lines.mid(0, lines.size() - 1));
        Q_EMIT raiseRequested(QString::fromUtf8(last.mid(kRaiseCall.size()).trimmed()));
    }
}

void SingleInstance::handOver(const QByteArrayList& calls)
{
    QStringList lines;
    for (const QByteArray& call : calls) {
        if (call.startsWith(kOpenCall)) {
            const QByteArray line = call.mid(kOpenCall.size());
            lines.append(QString::fromUtf8(QByteArray::fromPercentEncoding(line)));
        }
    }
    if (!lines.isEmpty()) {
        Q_EMIT linesHandedOver(lines);
    }
}

bool SingleInstance::raiseFirst(const QString& activationToken, const QStringList& lines) const
{
    QLocalSocket call;
    call.connectToServer(socketName(m_folder));
    if (!call.waitForConnected(kConnectTimeMs)) {
        return false;
    }
    if (!isOfThisUser(call)) { // an activation token is nobody else's business
        qCInfo(logErrors, "the socket of the first instance belongs to another user");
        return false;
    }
    for (const QString& line : lines) {
        call.write(kOpenCall + line.toUtf8().toPercentEncoding() + '\n');
    }
    call.write(kRaiseCall + activationToken.toUtf8() + '\n');
    // Being written proves nothing: the call may lie unread in a socket that is about to close.
    const QDeadlineTimer patience(kAnswerTimeMs);
    while (!call.canReadLine() && !patience.hasExpired() &&
           call.waitForReadyRead(static_cast<int>(patience.remainingTime()))) {
    }
    return call.readLine(kHeard.size() + 1) == kHeard;
}

void SingleInstance::release()
{
    delete m_server;
    m_server = nullptr;
    m_lock.reset();
}

} // namespace orvanta
