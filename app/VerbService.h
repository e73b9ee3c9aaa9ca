#pragma once

#include "app/AppDelegate.h"
#include "app/ResidentServer.h"

#include <map>
#include <vector>

// Carries out the verbs that later starts of the program hand over. A capture's or a tool's verb is answered
// when it has ended; verbs that come during the launch wait for its end, which comes sooner for
// them.
class VerbService {
public:
    // Borrows the delegate, which must outlive the service, and listens to its captures.
    explicit VerbService(AppDelegate& delegate);

    void handle(const QString& verb, const ResidentServer::Answer& answer);

private:
    void capture(const std::function<void()>& start, const ResidentServer::Answer& answer);
    void useTool(bool isPick, const ResidentServer::Answer& answer);
    void carryOutWaiting();
    void captureFinished(quint64 capture, const CaptureOutcome& outcome);

    AppDelegate& m_delegate;
    std::map<quint64, ResidentServer::Answer> m_captures; // by the capture's number
    std::function<void(const ToolOutcome&)> m_tool;       // who waits for the running tool; empty for nobody
    std::vector<std::pair<QString, ResidentServer::Answer>> m_waiting;
};
