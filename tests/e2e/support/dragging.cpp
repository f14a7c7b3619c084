#include "tests/e2e/support/dragging.h"

#include "tests/e2e/support/wait.h"

#include <QRect>
#include <QUrl>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

static constexpr QRect kSource(1140, 700, 120, 80); // the main window opens at the upper left

QByteArray addressOf(const QString& file)
{
    return QUrl::fromLocalFile(file).toEncoded(QUrl::FullyEncoded);
}

QByteArrayList addressesOf(const QStringList& files)
{
    QByteArrayList addresses;
    for (const QString& file : files) {
        addresses.append(addressOf(file));
    }
    return addresses;
}

Dragging::Dragging(Desktop& desktop)
    : m_desktop(desktop)
{
    m_source.setProcessEnvironment(desktop.environment());
    m_source.start(QStringLiteral(ORVANTA_BUILD_DIR "/drag_source"),
                   {QString::number(kSource.x()), QString::number(kSource.y()),
                    QString::number(kSource.width()), QString::number(kSource.height())});
}

bool Dragging::hasSaid(const QByteArray& line)
{
    while (m_source.canReadLine()) {
        m_said.append(m_source.readLine().trimmed());
    }
    return m_said.contains(line);
}

bool Dragging::says(const QByteArray& line)
{
    const bool said =
        waitFor([&] { return hasSaid(line) || m_source.state() == QProcess::NotRunning; });
    return said && hasSaid(line);
}

/// A source that still waits for the answer to one move keeps the next ones to itself, and a last
/// one may stay unsent: the hand trembles there until the answer comes.
bool Dragging::saysOver(const QByteArray& line, QPoint place)
{
    int moves = 0;
    return waitFor([&] {
        m_desktop.moveMouse(place + QPoint(++moves % 2, 0));
        return hasSaid(line);
    });
}

bool Dragging::offer(const QByteArrayList& addresses)
{
    m_said.clear();
    m_source.write(addresses.join(' ') + '\n');
    return says("offers");
}

/// Presses the button on the source and moves there, as a hand does: in small steps.
void Dragging::take(QPoint place)
{
    constexpr int kSteps = 12;
    const QPoint from = kSource.center();
    m_desktop.moveMouse(from);
    m_desktop.holdButton(true);
    for (int i = 1; i <= kSteps; ++i) {
        m_desktop.moveMouse(from + (place - from) * i / kSteps);
    }
}

/// The program below is told of some moves only: it learns the place from a hand that trembles
/// there.
void Dragging::rest(QPoint place)
{
    constexpr int kTrembles = 40;
    for (int i = 0; i < kTrembles; ++i) {
        m_desktop.moveMouse(place + QPoint(i % 2, 0));
    }
}

bool Dragging::drop(const QByteArrayList& addresses, QPoint place)
{
    if (!offer(addresses)) {
        return false;
    }
    take(place);
    const bool welcome = saysOver("over copy", place);
    rest(place);
    m_desktop.holdButton(false);
    return welcome && says("dropped copy");
}

bool Dragging::dropFiles(const QStringList& files, QPoint place)
{
    return drop(addressesOf(files), place);
}

bool Dragging::isRefused(const QByteArrayList& addresses, QPoint place, QPoint before)
{
    if (!offer(addresses)) {
        return false;
    }
    // Over a place where it is welcome first: its going back to nothing is then an answer.
    take(before);
    const bool welcome = saysOver("over copy", before);
    m_said.clear();
    const bool refused = saysOver("over nothing", place);
    m_desktop.holdButton(false);
    return welcome && refused && says("dropped nothing");
}

} // namespace orvanta::e2e
