#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

// Ends the program in good order when the system asks for it (SIGTERM, SIGINT, SIGHUP), and turns the signals
// that would end it in the middle of a write (SIGXFSZ, SIGPIPE) into the write's own error. One a process.
class TerminationSignals : public QObject {
public:
    // Needs the application object.
    TerminationSignals();

    // Called once, from the event loop.
    std::function<void()> onTerminate;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
