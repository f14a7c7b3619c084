// The simplest web server: the files of a folder, nothing else.
#pragma once

#include <QString>
#include <QTcpServer>

namespace orvanta::test {

/// Serves in the event loop, on this machine alone.
class StaticServer : public QTcpServer
{
    Q_OBJECT

public:
    enum Ranges
    {
        WithRanges,
        WithoutRanges, // as the servers that scripting languages bring along
    };

    StaticServer(const QString& folder, Ranges ranges);

    /// The address of a file of the folder; name: encoded.
    [[nodiscard]] QString address(const QString& name) const;

private:
    void serve(QTcpSocket& socket);
    void answer(QTcpSocket& socket, const QByteArray& request);

    QString m_folder;
    Ranges m_ranges;
};

} // namespace orvanta::test
