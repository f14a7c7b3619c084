#include "tests/support/browser/static_server.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QUrl>

namespace orvanta::test {

using namespace Qt::StringLiterals;

StaticServer::StaticServer(const QString& folder, Ranges ranges)
    : m_folder(folder),
      m_ranges(ranges)
{
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(*socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
    listen(QHostAddress::LocalHost);
}

QString StaticServer::address(const QString& name) const
{
    return u"http://127.0.0.1:%1/%2"_s.arg(serverPort()).arg(name);
}

void StaticServer::serve(QTcpSocket& socket)
{
    while (true) {
        const qsizetype end = socket.peek(1 << 16).indexOf("\r\n\r\n");
        if (end < 0) {
            return;
        }
        answer(socket, socket.read(end + 4));
    }
}

static QByteArray typeOf(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix();
    if (suffix == u"html") {
        return "text/html";
    }
    if (suffix == u"mp4" || suffix == u"webm") {
        return "video/" + suffix.toLatin1();
    }
    return suffix == u"png" ? "image/png" : "application/octet-stream";
}

void StaticServer::answer(QTcpSocket& socket, const QByteArray& request)
{
    const QString name = QUrl::fromPercentEncoding(request.split(' ').value(1).mid(1));
    const QString path = QDir::cleanPath(m_folder + u'/' + name);
    QFile file(path);
    if (!path.startsWith(m_folder + u'/') || !file.open(QIODevice::ReadOnly)) {
        socket.write("HTTP/1.1 404 Not found\r\nContent-Length: 0\r\n\r\n");
        return;
    }
    const QByteArray content = file.readAll();
    static const QRegularExpression wanted(u"\r\nRange: bytes=(\\d+)-(\\d*)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const auto range = wanted.match(QString::fromLatin1(request));
    QByteArray head = "Content-Type: " + typeOf(path) + "\r\n";
    QByteArray body = content;
    if (m_ranges == WithRanges && range.hasMatch()) {
        const qint64 from = range.captured(1).toLongLong();
        const qint64 last =
            range.captured(2).isEmpty() ? content.size() - 1 : range.captured(2).toLongLong();
        body = content.mid(from, last - from + 1);
        head = "HTTP/1.1 206 Partial\r\nAccept-Ranges: bytes\r\n" + head + "Content-Range: bytes " +
               QByteArray::number(from) + '-' + QByteArray::number(from + body.size() - 1) + '/' +
               QByteArray::number(content.size()) + "\r\n";
    } else {
        head.prepend("HTTP/1.1 200 OK\r\n");
    }
    socket.write(head + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

} // namespace orvanta::test
