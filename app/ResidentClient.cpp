#include "app/ResidentClient.h"

#include "app/CommandLine.h"
#include "app/ResidentLink.h"
#include "app/StandardStreams.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QProcess>
#include <QThread>

#include <array>
#include <cstdio>

namespace {

constexpr int kStartTimeoutMs = 10000; // for a resident program that is only starting
constexpr int kRetryMs = 20;
constexpr qint64 kPiece = 1 << 18; // bytes of a picture that are held here at a time

bool isCapture(const QString& verb)
{
    return verb == QLatin1String("region") || verb == QLatin1String("full") ||
           verb == QLatin1String("window");
}

bool connected(QLocalSocket& socket, int timeoutMs)
{
    socket.connectToServer(ResidentLink::socketPath());
    return socket.waitForConnected(timeoutMs);
}

bool connectedInTime(QLocalSocket& socket)
{
    for (const QDeadlineTimer deadline(kStartTimeoutMs); !deadline.hasExpired(); QThread::msleep(kRetryMs))
        if (connected(socket, kStartTimeoutMs))
            return true;
    return false;
}

bool startResident()
{
    QProcess process;
    process.setProgram(QCoreApplication::applicationFilePath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

bool reach(QLocalSocket& socket, const QString& verb)
{
    if (connected(socket, kStartTimeoutMs))
        return true;
    if (isCapture(verb))
        return startResident() && connectedInTime(socket);
    // A plain start that found the session taken: the other one may not listen yet.
    return verb == ResidentLink::startVerb() && connectedInTime(socket);
}

QByteArray lineFrom(QLocalSocket& socket, const QDeadlineTimer& deadline)
{
    while (!socket.canReadLine() && socket.waitForReadyRead(int(deadline.remainingTime()))) { }
    return socket.readLine();
}

int failed(const QString& message, int exitCode)
{
    std::fprintf(stderr, "lumora-screenshot: %s\n", qPrintable(message));
    return exitCode;
}

int unwritable(const QString& reason)
{
    return failed(QStringLiteral("stdout cannot be written: %1").arg(reason), ExitCode::kUnwritable);
}

// Bytes of the reply go on to stdout as they come.
int pass(QLocalSocket& socket, qint64 left)
{
    std::array<char, kPiece> piece;
    while (left > 0) {
        const qint64 count = socket.read(piece.data(), qMin(left, kPiece));
        if (count > 0) {
            if (const QString reason = StandardStreams::write(piece.data(), count); !reason.isEmpty())
                return unwritable(reason);
            left -= count;
        } else if (!socket.waitForReadyRead(-1) && socket.bytesAvailable() == 0) {
            return failed(
                QStringLiteral("the program ended in the middle of the picture"), ExitCode::kFailed);
        }
    }
    return ExitCode::kDone;
}

// What cannot be said on stdout is not lost.
int printed(const Reply& reply)
{
    std::fputs(qPrintable(reply.err), stderr);
    const QByteArray out = reply.out.toUtf8();
    const QString reason = StandardStreams::write(out.constData(), out.size());
    if (reason.isEmpty())
        return reply.exitCode;
    std::fputs(out.constData(), stderr);
    return unwritable(reason);
}

// Before anything is captured.
int streamProblem(const VerbRequest& request)
{
    if (request.output != VerbRequest::kToCaller)
        return ExitCode::kDone;
    if (StandardStreams::isOutputTerminal())
        return failed(QStringLiteral("stdout is a terminal, which shows no picture: redirect it"),
            ExitCode::kWrongUsage);
    const QString reason = StandardStreams::outputProblem();
    return reason.isEmpty() ? ExitCode::kDone : unwritable(reason);
}

// With the output as seen from the caller's folder.
VerbRequest absolute(VerbRequest request)
{
    if (!request.output.isEmpty() && request.output != VerbRequest::kToCaller)
        request.output = QDir::cleanPath(QDir::current().absoluteFilePath(request.output));
    return request;
}

}

int ResidentClient::run(const VerbRequest& request)
{
    if (const int problem = streamProblem(request); problem != ExitCode::kDone)
        return problem;
    QLocalSocket socket;
    socket.setReadBufferSize(4 * kPiece);
    if (!reach(socket, request.verb))
        return failed(QStringLiteral("the program does not run"),
            isCapture(request.verb) ? ExitCode::kFailed : ExitCode::kNothingRuns);
    socket.write(ResidentLink::encoded(absolute(request)));
    qint64 rawSize = 0;
    const auto reply = ResidentLink::decoded(lineFrom(socket, QDeadlineTimer::Forever), &rawSize);
    if (!reply)
        return failed(QStringLiteral("the program ended without an answer"), ExitCode::kFailed);
    return rawSize > 0 ? pass(socket, rawSize) : printed(*reply);
}

std::optional<Reply> ResidentClient::askIfRunning(const QString& verb, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    QLocalSocket socket;
    if (!connected(socket, timeoutMs))
        return std::nullopt;
    socket.write(ResidentLink::encoded(VerbRequest{.verb = verb}));
    qint64 rawSize = 0;
    const auto reply = ResidentLink::decoded(lineFrom(socket, deadline), &rawSize);
    return reply ? *reply : Reply{ExitCode::kFailed};
}
