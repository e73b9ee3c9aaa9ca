#pragma once

#include "app/AppDelegate.h"
#include "app/Countdown.h"
#include "app/ResidentServer.h"

#include <QPointer>

#include <map>
#include <memory>
#include <vector>

// Carries out the verbs that later starts of the program hand over. A capture's or a tool's verb is answered
// when it has ended; verbs that come during the launch wait for its end, which comes sooner for
// them.
class VerbService {
public:
    // Borrows the delegate, which must outlive the service, and listens to its captures.
    explicit VerbService(AppDelegate& delegate);

    struct Waiting {
        VerbRequest request;
        ResidentServer::Answer answer;
        QPointer<QObject> caller; // null once the caller has gone
    };
    void handle(const Waiting& verb);

private:
    void carryOut(const Waiting& verb);
    void capture(const Waiting& verb);
    void captureAfterCountdown(const Waiting& verb, const CaptureOrder& order);
    void begin(const Waiting& verb, const CaptureOrder& order);
    void useTool(bool isPick, const ResidentServer::Answer& answer);
    // While a capture runs or is counted down to.
    bool isBusy() const;
    void carryOutWaiting();
    void captureFinished(quint64 capture, const CaptureOutcome& outcome);

    AppDelegate& m_delegate;
    Countdown m_countdown;
    std::unique_ptr<QObject> m_countdownWatch;      // of its caller, while it runs
    std::map<quint64, Waiting> m_captures;          // by the capture's number
    std::function<void(const ToolOutcome&)> m_tool; // who waits for the running tool; empty for nobody
    std::vector<Waiting> m_waiting;
};
