#include "app/VerbService.h"

#include "app/CommandLine.h"
#include "app/EventMonitor.h"
#include "capture/ColourRules.h"

#include <utility>

namespace {

Reply replyTo(const CaptureOutcome& outcome)
{
    switch (outcome.kind) {
    case CaptureOutcome::Kind::Saved:
        return {ExitCode::kDone, outcome.path + QLatin1Char('\n'), {}};
    case CaptureOutcome::Kind::Copied:
        return {ExitCode::kDone, {}, QStringLiteral("the picture is on the clipboard\n")};
    case CaptureOutcome::Kind::Pinned:
        return {ExitCode::kDone, {}, QStringLiteral("the picture is pinned to the screen\n")};
    case CaptureOutcome::Kind::Uploading:
        return {ExitCode::kDone, {}, QStringLiteral("the picture is being uploaded\n")};
    case CaptureOutcome::Kind::Cancelled:
        return {ExitCode::kCancelled, {}, QStringLiteral("the capture was cancelled\n")};
    case CaptureOutcome::Kind::Failed:
        break;
    }
    return {ExitCode::kFailed, {}, QStringLiteral("the capture failed: %1\n").arg(outcome.reason)};
}

Reply replyTo(const ToolOutcome& outcome, bool isPick)
{
    if (!outcome.failure.isEmpty())
        return {ExitCode::kFailed, {}, QStringLiteral("the tool failed: %1\n").arg(outcome.failure)};
    if (outcome.colour)
        return {ExitCode::kDone, ColourRules::htmlText(*outcome.colour) + QLatin1Char('\n'), {}};
    if (isPick)
        return {ExitCode::kCancelled, {}, QStringLiteral("no colour was picked\n")};
    return {};
}

Reply replyToBusy()
{
    return {ExitCode::kBusy, {}, QStringLiteral("another capture is under way\n")};
}

Reply replyToStart()
{
    QString text = QStringLiteral("Lumora Mac Screenshot runs already\n");
    const QStringList refusals = EventMonitor::refusals();
    for (const QString& line : refusals)
        text += line + QLatin1Char('\n');
    return {ExitCode::kDone, {}, text};
}

}

VerbService::VerbService(AppDelegate& delegate)
    : m_delegate(delegate)
{
    m_delegate.onBegun = [this] { carryOutWaiting(); };
    m_delegate.screenShotManager().onFinished = [this](quint64 number, const CaptureOutcome& outcome) {
        captureFinished(number, outcome);
    };
    m_delegate.screenShotManager().tools().onEnded = [this](const ToolOutcome& outcome) {
        if (const auto waiting = std::exchange(m_tool, nullptr))
            waiting(outcome);
    };
}

void VerbService::handle(const QString& verb, const ResidentServer::Answer& answer)
{
    if (!m_delegate.hasBegun()) {
        m_waiting.emplace_back(verb, answer);
        m_delegate.endGreeting();
    } else if (verb == ResidentLink::startVerb()) {
        m_delegate.openMenu();
        answer(replyToStart());
    } else if (verb == QLatin1String("menu")) {
        answer(m_delegate.openMenu() ? Reply{} : replyToBusy());
    } else if (verb == QLatin1String("region") || verb == QLatin1String("full")) {
        const bool isFullScreen = verb == QLatin1String("full");
        capture([this, isFullScreen] { m_delegate.startCapture(isFullScreen); }, answer);
    } else if (verb == QLatin1String("reopen")) {
        capture([this] { m_delegate.reopenLastCapture(); }, answer);
    } else if (verb == QLatin1String("measure") || verb == QLatin1String("pick")) {
        useTool(verb == QLatin1String("pick"), answer);
    } else if (verb == QLatin1String("cancel")) {
        m_delegate.screenShotManager()._cancelScreenshot();
        answer({});
    } else if (verb == QLatin1String("quit")) {
        answer({});
        m_delegate.terminate();
    } else {
        answer({ExitCode::kWrongUsage, {}, CommandLine::usage()});
    }
}

void VerbService::capture(const std::function<void()>& start, const ResidentServer::Answer& answer)
{
    ZRScreenShotManager& manager = m_delegate.screenShotManager();
    if (manager.isCapturing()) {
        answer(replyToBusy());
        return;
    }
    m_captures[manager.captureNumber() + 1] = answer;
    start();
}

void VerbService::useTool(bool isPick, const ResidentServer::Answer& answer)
{
    ZRScreenShotManager& manager = m_delegate.screenShotManager();
    if (manager.isCapturing()) {
        answer(replyToBusy());
        return;
    }
    manager.tools().cancel(); // answers whoever waits for it
    m_tool = [isPick, answer](const ToolOutcome& outcome) { answer(replyTo(outcome, isPick)); };
    m_delegate.startTool(isPick ? ScreenShotTool::Color : ScreenShotTool::Distance);
}

void VerbService::carryOutWaiting()
{
    for (const auto& [verb, answer] : std::exchange(m_waiting, {}))
        handle(verb, answer);
}

void VerbService::captureFinished(quint64 capture, const CaptureOutcome& outcome)
{
    const auto waiting = m_captures.extract(capture);
    if (waiting)
        waiting.mapped()(replyTo(outcome));
}
