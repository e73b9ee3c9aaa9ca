#include "app/VerbService.h"

#include "app/CaptureVerbs.h"
#include "app/CommandLine.h"
#include "app/EventMonitor.h"
#include "capture/ColourRules.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

bool isCapture(const QString& verb)
{
    constexpr std::array kVerbs{"region", "full", "window", "reopen"};
    return std::ranges::any_of(kVerbs, [&](const char* each) { return verb == QLatin1String(each); });
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

QString refusals()
{
    QString lines;
    for (const QString& line : EventMonitor::refusals())
        lines += line + QLatin1Char('\n');
    return lines;
}

Reply replyToStart()
{
    return {ExitCode::kDone, {}, QStringLiteral("Lumora Mac Screenshot runs already\n") + refusals()};
}

}

VerbService::VerbService(AppDelegate& delegate)
    : m_delegate(delegate)
{
    ZRScreenShotManager& manager = m_delegate.screenShotManager();
    m_delegate.onBegun = [this] { carryOutWaiting(); };
    manager.onFinished = [this](quint64 number, const CaptureOutcome& outcome) {
        captureFinished(number, outcome);
    };
    manager.onPreempt = [this] { m_countdown.cancel(); };
    m_countdown.onGone = [this, &manager] {
        m_countdownWatch.reset();
        manager.tools().windowHasGone();
    };
    manager.tools().onEnded = [this](const ToolOutcome& outcome) {
        if (const auto waiting = std::exchange(m_tool, nullptr))
            waiting(outcome);
    };
}

void VerbService::handle(const Waiting& verb)
{
    if (verb.request.verb == ResidentLink::healthVerb()) {
        verb.answer({ExitCode::kDone, refusals()});
    } else if (!m_delegate.hasBegun()) {
        m_waiting.push_back(verb);
        m_delegate.endGreeting();
    } else {
        carryOut(verb);
    }
}

void VerbService::carryOut(const Waiting& verb)
{
    const auto& [request, answer, caller] = verb;
    if (request.verb == ResidentLink::startVerb()) {
        m_delegate.openMenu();
        answer(replyToStart());
    } else if (request.verb == QLatin1String("menu")) {
        answer(m_delegate.openMenu() ? Reply{} : replyToBusy());
    } else if (isCapture(request.verb)) {
        capture(verb);
    } else if (request.verb == QLatin1String("measure") || request.verb == QLatin1String("pick")) {
        useTool(request.verb == QLatin1String("pick"), answer);
    } else if (request.verb == QLatin1String("cancel")) {
        m_delegate.screenShotManager()._cancelScreenshot();
        answer({});
    } else if (request.verb == QLatin1String("quit")) {
        answer({});
        m_delegate.terminate();
    } else {
        answer({ExitCode::kWrongUsage, {}, CommandLine::usage()});
    }
}

bool VerbService::isBusy() const
{
    return m_delegate.screenShotManager().isCapturing() || m_countdown.isRunning();
}

void VerbService::capture(const Waiting& verb)
{
    if (isBusy())
        return verb.answer(replyToBusy());
    const auto ordered = CaptureVerbs::ordered(verb.request, m_delegate.windowServer());
    if (const Reply* refusal = std::get_if<Reply>(&ordered))
        return verb.answer(*refusal);
    const auto& order = std::get<CaptureOrder>(ordered);
    if (verb.request.delay > 0)
        captureAfterCountdown(verb, order);
    else
        begin(verb, order);
}

void VerbService::captureAfterCountdown(const Waiting& verb, const CaptureOrder& order)
{
    m_delegate.screenShotManager().tools().cancel();
    m_countdown.start(
        verb.request.delay, CaptureVerbs::displayOf(verb.request),
        [this, verb, order] { begin(verb, order); },
        [verb] { verb.answer(CaptureVerbs::replyTo(verb.request, {})); });
    m_countdownWatch = std::make_unique<QObject>();
    if (verb.caller)
        QObject::connect(
            verb.caller, &QObject::destroyed, m_countdownWatch.get(), [this] { m_countdown.cancel(); });
}

void VerbService::begin(const Waiting& verb, const CaptureOrder& order)
{
    m_captures[m_delegate.screenShotManager().captureNumber() + 1] = verb;
    if (verb.request.verb == QLatin1String("reopen"))
        m_delegate.reopenLastCapture(order.target);
    else
        m_delegate.startCapture(order);
}

void VerbService::useTool(bool isPick, const ResidentServer::Answer& answer)
{
    if (isBusy())
        return answer(replyToBusy());
    ZRScreenShotManager& manager = m_delegate.screenShotManager();
    manager.tools().cancel(); // answers whoever waits for it
    m_tool = [isPick, answer](const ToolOutcome& outcome) { answer(replyTo(outcome, isPick)); };
    m_delegate.startTool(isPick ? ScreenShotTool::Color : ScreenShotTool::Distance);
}

void VerbService::carryOutWaiting()
{
    for (const Waiting& verb : std::exchange(m_waiting, {}))
        carryOut(verb);
}

void VerbService::captureFinished(quint64 capture, const CaptureOutcome& outcome)
{
    if (const auto found = m_captures.extract(capture))
        found.mapped().answer(CaptureVerbs::replyTo(found.mapped().request, outcome));
}
