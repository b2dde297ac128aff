#pragma once

#include <QObject>

class QSocketNotifier;

// SIGTERM, SIGHUP and SIGINT as a Qt signal on the user-interface thread, so that the program
// can end as its Exit command does. The handler itself only writes a byte into a socket pair
// whose other end the event loop watches: nothing else is safe inside a signal handler.
// A signal that was ignored when the program started (nohup) stays ignored. One per program.
// The sockets are never closed, so a signal that comes while the program ends still writes
// into an open socket rather than into a file that has taken its number.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);

signals:
    void Received();

private:
    void Drain();

    int sockets[2] = {};
};
