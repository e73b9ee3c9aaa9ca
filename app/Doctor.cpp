#include "app/Doctor.h"

#include "app/CommandLine.h"
#include "app/DesktopChecks.h"
#include "app/FileChecks.h"
#include "app/NetworkEndpointTest.h"
#include "app/ResidentClient.h"
#include "app/StandardStreams.h"
#include "output/CaptureJournal.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/UserDefaults.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QStorageInfo>
#include <QTimer>
#include <QUrl>

#include <cstdio>
#include <memory>

namespace {

using State = Finding::State;
using Findings = std::vector<Finding>;

constexpr int kProgramMs = 2000; // for the running program's answer
constexpr int kTrayMs = 1000;    // for the desktop's panel, which says nothing where there is none
constexpr int kServiceMs = 3000; // asked at the same time

// What others answer in their own time.
struct Answers {
    bool hasTray = false;
    std::optional<QString> endpointFailure; // empty text for a service that answers; nothing for no answer
};

// Returns when both have answered or had their time.
Answers askOthers(StatusItemHost* host)
{
    Answers answers;
    QEventLoop loop;
    NetworkEndpointTest service;
    const QString address = AppSettings::uploadEndpoint();
    bool waitsForService = !address.isEmpty();
    bool waitsForTray = host != nullptr;
    const auto end = [&](bool& waits) {
        waits = false;
        if (!waitsForService && !waitsForTray)
            loop.quit();
    };
    QTimer::singleShot(kServiceMs, &loop, [&] { end(waitsForService); });
    QTimer::singleShot(kTrayMs, &loop, [&] { end(waitsForTray); });
    if (waitsForService)
        service.ask(address, [&](const QString& failure) {
            answers.endpointFailure = failure;
            end(waitsForService);
        });
    if (host) {
        host->onFound = [&] {
            answers.hasTray = true;
            end(waitsForTray);
        };
        host->watch();
    }
    if (waitsForService || waitsForTray)
        loop.exec();
    if (host)
        host->onFound = nullptr;
    return answers;
}

Finding program(const std::optional<Reply>& health)
{
    const QString subject = QStringLiteral("program");
    if (!health)
        return {State::Right, subject, QStringLiteral("it does not run; a capture verb starts it")};
    if (health->exitCode != ExitCode::kDone)
        return {State::Wrong, subject, QStringLiteral("it runs and does not answer"),
            QStringLiteral("end its process")};
    return {State::Right, subject, QStringLiteral("it runs and answers")};
}

Finding endpoint(const std::optional<QString>& failure)
{
    const QString subject = QStringLiteral("upload");
    const QString address = AppSettings::uploadEndpoint();
    if (address.isEmpty())
        return {State::Right, subject, QStringLiteral("no address is set, nothing can be uploaded")};
    const QString remedy = QStringLiteral("correct the address in the preferences, or start its service");
    if (!failure || !failure->isEmpty())
        return {State::Wrong, subject,
            QStringLiteral("%1 fails: %2")
                .arg(address, failure ? *failure
                                      : QStringLiteral("no answer within %1 seconds").arg(kServiceMs / 1000)),
            remedy};
    if (QUrl(address).scheme() == QLatin1String("http"))
        return {State::Warning, subject,
            QStringLiteral("%1 answers, and whoever is on the way can look at the pictures").arg(address),
            QStringLiteral("use an https address")};
    return {State::Right, subject, QStringLiteral("%1 answers").arg(address)};
}

void examineFiles(Findings& findings)
{
    const QString folder = AppSettings::defaultChooseScreenshotSavePath();
    const QString chosen =
        AppSettings::getFromUserDefaultsObject(QStringLiteral("screenshotSavePath")).toString();
    const QString used = chosen.isEmpty() ? folder : chosen;
    findings.push_back(FileChecks::saveFolder(used, used != folder));
    const QStorageInfo storage(QFileInfo::exists(used) ? used : QDir::homePath());
    findings.push_back(FileChecks::freeSpace(used, storage.bytesAvailable()));
    findings.push_back(FileChecks::languages(LanguageCatalogue::folders()));
    findings.push_back(
        FileChecks::journal(CaptureJournal::standardFolder(), AppSettings::isLastCaptureKept()));
}

void examineDesktop(Findings& findings, Platform& platform, const std::optional<Reply>& health)
{
    const DesktopFacts facts = desktopFacts();
    const bool isRunning = health && health->exitCode == ExitCode::kDone;
    const QStringList refusals =
        isRunning ? health->out.split(QLatin1Char('\n'), Qt::SkipEmptyParts) : QStringList();
    findings.push_back(DesktopChecks::displays(*platform.displays));
    findings.push_back(DesktopChecks::capture(*platform.displays, *platform.windowServer, facts));
    findings.push_back(DesktopChecks::hotKeys(isRunning ? &refusals : nullptr, *platform.hotKeys));
    findings.push_back(DesktopChecks::clipboard(facts));
}

// A sentence as a half of one.
QString withoutStop(QString sentence)
{
    if (sentence.endsWith(QLatin1Char('.')))
        sentence.chop(1);
    return sentence;
}

Findings examined(Platform* platform, const QString& desktopProblem)
{
    Findings findings;
    if (platform) {
        const auto health = ResidentClient::askIfRunning(ResidentLink::healthVerb(), kProgramMs);
        findings.push_back(program(health));
        examineDesktop(findings, *platform, health);
    } else {
        findings.push_back({State::Wrong, QStringLiteral("desktop"), withoutStop(desktopProblem),
            QStringLiteral("call the program from within the session")});
    }
    const Answers answers = askOthers(platform ? platform->statusItemHost.get() : nullptr);
    if (platform)
        findings.push_back(DesktopChecks::tray(answers.hasTray));
    examineFiles(findings);
    findings.push_back(endpoint(answers.endpointFailure));
    return findings;
}

int printed(const Findings& findings, bool isJson)
{
    const QByteArray text = (isJson ? DoctorReport::json(findings) : DoctorReport::text(findings)).toUtf8();
    const QString reason = StandardStreams::write(text.constData(), text.size());
    if (!reason.isEmpty()) {
        std::fprintf(stderr, "lumora-screenshot: stdout cannot be written: %s\n", qPrintable(reason));
        return ExitCode::kUnwritable;
    }
    return DoctorReport::isRight(findings) ? ExitCode::kDone : ExitCode::kFailed;
}

}

int Doctor::run(int& argc, char** argv, bool isJson)
{
    const QString problem = desktopProblem();
    const std::unique_ptr<QCoreApplication> application(
        problem.isEmpty() ? new QGuiApplication(argc, argv) : new QCoreApplication(argc, argv));
    const QStringList domains{AppSettings::AppBundleId(), AppSettings::AppOldBundleId()};
    const QString folder = preferencesFolder(domains);
    Findings findings{
        FileChecks::settingsFile(QStringLiteral("%1/%2.plist").arg(folder, AppSettings::AppBundleId()))};
    // A broken file is read by nobody: the store would put it aside.
    const std::unique_ptr<UserDefaults> settings(
        DoctorReport::isRight(findings) ? new UserDefaults(folder, domains[0], domains[1]) : nullptr);
    UserDefaults::setStandardUserDefaults(settings.get());
    AppSettings::initSettingInNeed(QStringLiteral(":/UserDefaults.plist"));
    std::unique_ptr<Platform> platform(problem.isEmpty() ? new Platform(makePlatform()) : nullptr);
    const Findings others = examined(platform.get(), problem);
    findings.insert(findings.begin(), others.begin(), others.end());
    const int exitCode = printed(findings, isJson);
    std::_Exit(exitCode); // a session bus that does not answer would hold an orderly end up
}
