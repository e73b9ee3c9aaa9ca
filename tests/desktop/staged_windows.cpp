// Linked with the program's own main: the program with windows that otherwise only a transfer brings. Which
// ones, the variable STAGED_WINDOWS says, in words: each "alert" waits for the one before it, "progress" is
// the notice of a transfer that is over and goes a second after the pointer has left it. The log has the
// alerts' answers.

#include "commonutils/CommLog.h"
#include "customui/ZRHoverButton.h"
#include "output/ZRCustomAlert.h"
#include "output/ZRCustomLocalNotification.h"
#include "output/ZRLocalNotificationCenter.h"
#include "output/ZRScreenshotUploadingView.h"

#include <QApplication>
#include <QTimer>

namespace {

constexpr int kProgressSeconds = 1;

void stageAlert()
{
    auto alert = std::make_unique<ZRCustomAlert>();
    alert->title()->setText(QStringLiteral("Staged alert"));
    alert->btnDefault()->setTitle(QStringLiteral("Retry"));
    alert->btnCancel()->setTitle(QStringLiteral("Cancel"));
    alert->updateMessage(QStringLiteral("What now?"));
    ZRCustomAlert::run(std::move(alert),
        [](int code) { CommLog::log(QStringLiteral("the alert was answered with %1").arg(code)); });
}

void stageProgress()
{
    auto view = ZRScreenshotUploadingView::LoadFromNib();
    view->setUploadFilePath(QStringLiteral("/tmp/picture.jpg"));
    view->setIsFinished(true);
    auto notification = std::make_unique<ZRCustomLocalNotification>(view.release());
    notification->setAutoHiddenDelayTime(kProgressSeconds);
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().deliverZRCustomNotification(
        std::move(notification));
}

// A verb's own run is no QApplication; the launch is over when the loop begins.
void stage()
{
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
            return;
        const QString words = qEnvironmentVariable("STAGED_WINDOWS");
        for (const QString& word : words.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            word == QLatin1String("alert") ? stageAlert() : stageProgress();
    });
}

}

Q_COREAPP_STARTUP_FUNCTION(stage)
