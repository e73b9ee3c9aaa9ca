#include "app/CaptureVerbs.h"

#include "app/CommandLine.h"
#include "capture/AreaRules.h"
#include "capture/LastRegion.h"
#include "capture/ToolScreen.h"
#include "commonutils/ToolFile.h"
#include "platform/WindowServer.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using Area = std::optional<CaptureArea>;

QString listOfDisplays()
{
    return AreaRules::list(ToolScreen::screens(), ToolScreen::virtualScreen());
}

Area wholeDisplay(const QString& name, QString* reason)
{
    const auto display = AreaRules::displayNamed(name, ToolScreen::screens());
    *reason = QStringLiteral("there is no display %1; there are: %2").arg(name, listOfDisplays());
    return display ? Area(CaptureArea{*display, {{0, 0}, display->pixels.size()}}) : std::nullopt;
}

Area lastRegion(QString* reason)
{
    *reason = QStringLiteral("there is no last region, or its display is gone or has become smaller");
    return LastRegion::area();
}

// A picture smaller than what was asked for would be a surprise.
Area rectangle(const QString& geometry, QString* reason)
{
    const auto parsed = AreaRules::parsed(geometry);
    const QRect pixels = parsed ? AreaRules::placed(*parsed, ToolScreen::virtualScreen()) : QRect();
    const auto area = AreaRules::onMainDisplay(pixels, ToolScreen::screens());
    *reason = QStringLiteral("%1 is not all on one display; there are: %2").arg(geometry, listOfDisplays());
    return area && area->pixels.size() == pixels.size() ? area : std::nullopt;
}

// What the options name; nothing, and no reason, where they name nothing.
Area named(const VerbRequest& request, QString* reason)
{
    if (!request.display.isEmpty())
        return wholeDisplay(request.display, reason);
    if (!request.geometry.isEmpty())
        return rectangle(request.geometry, reason);
    return request.isLast ? lastRegion(reason) : std::nullopt;
}

Area activeWindow(const WindowServer& windowServer, QString* reason)
{
    *reason = QStringLiteral("no window is active");
    const auto window = windowServer.activeWindow();
    return window ? AreaRules::onMainDisplay(window->pixels, ToolScreen::screens()) : std::nullopt;
}

// Why a file cannot be written there, as far as that is plain beforehand.
QString outputProblem(const QString& path)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.path());
    if (!folder.isDir())
        return QStringLiteral("there is no folder %1").arg(file.path());
    if (!folder.isWritable())
        return QStringLiteral("the folder %1 is not yours to write").arg(file.path());
    return file.exists() && !file.isFile() ? QStringLiteral("%1 is not a file").arg(path) : QString();
}

CaptureTarget targetOf(const VerbRequest& request)
{
    if (request.toClipboard)
        return {CaptureTarget::Kind::Clipboard, {}};
    if (request.output == VerbRequest::kToCaller)
        return {CaptureTarget::Kind::Caller, {}};
    if (!request.output.isEmpty())
        return {CaptureTarget::Kind::File, ToolFile::linkTarget(request.output)};
    return {};
}

Reply refused(int exitCode, const QString& reason)
{
    return {exitCode, {}, reason + QLatin1Char('\n')};
}

QJsonObject json(QSize size)
{
    return {{QStringLiteral("width"), size.width()}, {QStringLiteral("height"), size.height()}};
}

// The region counts device pixels as --geometry does.
QString jsonOf(const CaptureOutcome& outcome)
{
    const CaptureArea& area = *outcome.area;
    const QRect region =
        area.pixels.translated(area.display.pixels.topLeft() - ToolScreen::virtualScreen().topLeft());
    QJsonObject regionObject = json(region.size());
    regionObject[QStringLiteral("x")] = region.x();
    regionObject[QStringLiteral("y")] = region.y();
    const QJsonObject object{
        {QStringLiteral("path"), outcome.path.isEmpty() ? QJsonValue() : QJsonValue(outcome.path)},
        {QStringLiteral("size"), json(outcome.size)}, {QStringLiteral("display"), area.display.name},
        {QStringLiteral("scale"), area.display.scale}, {QStringLiteral("region"), regionObject}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) + QLatin1Char('\n');
}

QString outOf(const VerbRequest& request, const CaptureOutcome& outcome)
{
    if (request.isJson && outcome.area)
        return jsonOf(outcome);
    return outcome.path.isEmpty() ? QString() : outcome.path + QLatin1Char('\n');
}

// A script that asked for a file must not take a picture elsewhere for one.
Reply replyOfElsewhere(const VerbRequest& request, const CaptureOutcome& outcome, const QString& where)
{
    if (!request.output.isEmpty())
        return refused(ExitCode::kCancelled, where);
    return {ExitCode::kDone, outOf(request, outcome), where + QLatin1Char('\n')};
}

}

std::variant<CaptureOrder, Reply> CaptureVerbs::ordered(
    const VerbRequest& request, const WindowServer& windowServer)
{
    CaptureOrder order{.isFullScreen = request.verb == QLatin1String("full"), .target = targetOf(request)};
    if (order.target.kind == CaptureTarget::Kind::File)
        if (const QString problem = outputProblem(order.target.path); !problem.isEmpty())
            return refused(ExitCode::kUnwritable, problem);
    QString reason;
    if (named(request, &reason))
        order.area = [request](QString* why) { return named(request, why); };
    else if (!reason.isEmpty())
        return refused(ExitCode::kNothingThere, reason);
    if (request.verb == QLatin1String("window"))
        order.area = [&windowServer](QString* why) { return activeWindow(windowServer, why); };
    return order;
}

DisplayRecord CaptureVerbs::displayOf(const VerbRequest& request)
{
    QString reason;
    if (const Area area = named(request, &reason))
        return area->display;
    const auto underPointer = ToolScreen::screenUnderPointer();
    return (underPointer ? underPointer : ToolScreen::getFirstScreen()).value_or(DisplayRecord{});
}

Reply CaptureVerbs::replyTo(const VerbRequest& request, const CaptureOutcome& outcome)
{
    switch (outcome.kind) {
    case CaptureOutcome::Kind::Saved:
        return {ExitCode::kDone, outOf(request, outcome)};
    case CaptureOutcome::Kind::Encoded:
        return {ExitCode::kDone, {}, {}, outcome.png};
    case CaptureOutcome::Kind::Copied:
        return replyOfElsewhere(request, outcome, QStringLiteral("the picture is on the clipboard"));
    case CaptureOutcome::Kind::Pinned:
        return replyOfElsewhere(request, outcome, QStringLiteral("the picture is pinned to the screen"));
    case CaptureOutcome::Kind::Uploading:
        return replyOfElsewhere(request, outcome, QStringLiteral("the picture is being uploaded"));
    case CaptureOutcome::Kind::Cancelled:
        return refused(ExitCode::kCancelled, QStringLiteral("the capture was cancelled"));
    case CaptureOutcome::Kind::NothingThere:
        return refused(ExitCode::kNothingThere, outcome.reason);
    case CaptureOutcome::Kind::Unwritable:
    case CaptureOutcome::Kind::Failed:
        break;
    }
    const bool isOutput = outcome.kind == CaptureOutcome::Kind::Unwritable && !request.output.isEmpty();
    return refused(isOutput ? ExitCode::kUnwritable : ExitCode::kFailed,
        QStringLiteral("the capture failed: %1").arg(outcome.reason));
}
