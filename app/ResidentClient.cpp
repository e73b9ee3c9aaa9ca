#include "app/ResidentClient.h"

#include "app/CommandLine.h"
#include "app/ResidentLink.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QThread>

#include <cstdio>

namespace {

constexpr int kStartTimeoutMs = 10000; // for a resident program that is only starting
constexpr int kRetryMs = 20;

bool isCapture(const QString& verb)
{
    return verb == QLatin1String("region") || verb == QLatin1String("full");
}

bool connected(QLocalSocket& socket)
{
    socket.connectToServer(ResidentLink::socketPath());
    return socket.waitForConnected(kStartTimeoutMs);
}

bool connectedInTime(QLocalSocket& socket)
{
    for (const QDeadlineTimer deadline(kStartTimeoutMs); !deadline.hasExpired(); QThread::msleep(kRetryMs))
        if (connected(socket))
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
    if (connected(socket))
        return true;
    if (isCapture(verb))
        return startResident() && connectedInTime(socket);
    // A plain start that found the session taken: the other one may not listen yet.
    return verb == ResidentLink::startVerb() && connectedInTime(socket);
}

QByteArray conversation(QLocalSocket& socket, const QString& verb)
{
    socket.write(verb.toUtf8() + '\n');
    while (!socket.canReadLine() && socket.waitForReadyRead(-1)) { }
    return socket.readLine();
}

int printed(const Reply& reply)
{
    std::fputs(qPrintable(reply.err), stderr);
    const QByteArray out = reply.out.toUtf8();
    const bool isWritten = std::fwrite(out.constData(), 1, size_t(out.size()), stdout) == size_t(out.size());
    return isWritten && std::fflush(stdout) == 0 ? reply.exitCode : ExitCode::kFailed;
}

}

int ResidentClient::run(const QString& verb)
{
    QLocalSocket socket;
    if (!reach(socket, verb)) {
        std::fputs("lumora-screenshot does not run\n", stderr);
        return isCapture(verb) ? ExitCode::kFailed : ExitCode::kNothingRuns;
    }
    const auto reply = ResidentLink::decoded(conversation(socket, verb));
    if (!reply)
        std::fputs("lumora-screenshot ended without an answer\n", stderr);
    return reply ? printed(*reply) : ExitCode::kFailed;
}
