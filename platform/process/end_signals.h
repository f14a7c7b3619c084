// SIGTERM, SIGINT and SIGHUP as an event of the interface thread.
#pragma once

#include <QObject>

class QSocketNotifier;

namespace orvanta {

/// While it lives, these signals no longer end the process: endRequested comes from the event
/// loop, never in the middle of a handler. At most one object at a time.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    ~EndSignals() override;

Q_SIGNALS:
    void endRequested();

private:
    void takeSignal();

    int m_readEnd = -1;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace orvanta
