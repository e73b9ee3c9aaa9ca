#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/Doctor.h"
#include "app/KeyNames.h"
#include "app/ResidentClient.h"
#include "app/ResidentLink.h"
#include "app/ResidentServer.h"
#include "app/StandardStreams.h"
#include "app/TerminationSignals.h"
#include "app/VerbService.h"
#include "commonutils/CommLog.h"
#include "platform/Platform.h"
#include "settings/AppSettings.h"
#include "settings/UserDefaults.h"

#include <QApplication>
#include <QLockFile>

#include <cstdio>

namespace {

int failed(const QString& message)
{
    std::fprintf(stderr, "lumora-screenshot: %s\n", qPrintable(message));
    return ExitCode::kFailed;
}

int runClient(int& argc, char** argv, const VerbRequest& request)
{
    const QCoreApplication application(argc, argv);
    return ResidentClient::run(request);
}

int runResident(int& argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    KeyNames keyNames;
    QApplication::installTranslator(&keyNames);
    TerminationSignals signalsOfTheSystem;
    CommLog::start(QStringLiteral("lumora-screenshot"));
    CommLog::writeStartHeader();
    const QStringList domains{AppSettings::AppBundleId(), AppSettings::AppOldBundleId()};
    UserDefaults settings(preferencesFolder(domains), domains[0], domains[1]);
    settings.startWatching();
    UserDefaults::setStandardUserDefaults(&settings);
    Platform platform = makePlatform();
    AppDelegate delegate(platform);
    VerbService verbs(delegate);
    ResidentServer server;
    server.onRequest = [&verbs](const VerbRequest& request, const ResidentServer::Answer& answer,
                           QObject& caller) {
        verbs.handle({request, answer, &caller});
    };
    if (const QString reason = server.listen(); !reason.isEmpty())
        CommLog::log(QStringLiteral("verbs from the command line will not be heard: %1").arg(reason));
    signalsOfTheSystem.onTerminate = [&delegate] { delegate.terminate(); };
    delegate.applicationDidFinishLaunching();
    const int code = QApplication::exec();
    delegate.applicationWillTerminate();
    return code;
}

int runInSession(int& argc, char** argv, const CommandLine& line)
{
    if (const QString problem = desktopProblem(); !problem.isEmpty())
        return failed(problem);
    if (line.kind == CommandLine::Kind::Verb)
        return runClient(argc, argv, line.request);
    QLockFile lock(ResidentLink::lockPath());
    lock.setStaleLockTime(0); // stale only when its process is gone
    if (!lock.tryLock(0) && lock.error() == QLockFile::LockFailedError)
        return runClient(argc, argv, {.verb = ResidentLink::startVerb()});
    return runResident(argc, argv);
}

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

}

int main(int argc, char** argv)
{
    StandardStreams::secure();
    const CommandLine line = CommandLine::parsed(argumentsOf(argc, argv));
    switch (line.kind) {
    case CommandLine::Kind::Help:
        std::fputs(qPrintable(CommandLine::usage()), stdout);
        return ExitCode::kDone;
    case CommandLine::Kind::Version:
        std::puts("lumora-screenshot " LUMORA_VERSION);
        return ExitCode::kDone;
    case CommandLine::Kind::Wrong:
        std::fprintf(stderr, "lumora-screenshot: %s\nusage: lumora-screenshot --help tells it\n",
            qPrintable(line.problem));
        return ExitCode::kWrongUsage;
    case CommandLine::Kind::Doctor:
        return Doctor::run(argc, argv, line.request.isJson);
    case CommandLine::Kind::Start:
    case CommandLine::Kind::Verb:
        break;
    }
    return runInSession(argc, argv, line);
}
