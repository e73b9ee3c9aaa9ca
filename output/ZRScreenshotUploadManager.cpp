#include "output/ZRScreenshotUploadManager.h"

#include "commonutils/CommLog.h"
#include "commonutils/CommUtils.h"
#include "commonutils/NotificationCenter.h"
#include "commonutils/ToolFile.h"
#include "customui/ZRHoverButton.h"
#include "output/UploadRules.h"
#include "output/ZRBasicLocalNotification.h"
#include "output/ZRCustomAlert.h"
#include "output/ZRLocalNotificationCenter.h"
#include "output/ZRScreenshotUploadSettingWindow.h"
#include "output/ZRUploadToCloudContentView.h"
#include "settings/AppSettings.h"

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QStandardPaths>

#include <utility>

namespace {

const QString kIcon = QStringLiteral("logo");
const QString kService = QStringLiteral("Kestrel");
constexpr int kShownSeconds = 4; // of a notice whose upload has ended

// The keys of what an upload that reports by notification posts. Kept: one has a capital letter.
const QString kFilePath = QStringLiteral("uploadImage.response.uploadFilePath");
const QString kFraction = QStringLiteral("UploadImage.response.updateProgress");
const QString kLink = QStringLiteral("uploadImage.response.urlLink");
const QString kIsSuccess = QStringLiteral("uploadImage.response.finishStatus");
const QString kError = QStringLiteral("uploadImage.response.errorInfo");

QString text(QStringView key)
{
    return AppSettings::getXMLValueForKeywords(key);
}

QString standardHistoryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/com.Lumora.Screenshot/uploads.txt");
}

// Read from the disk in a size that a form can show.
QImage previewOf(const QString& path)
{
    constexpr QSize kLargest(800, 600); // device pixels
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.width() > kLargest.width() || size.height() > kLargest.height())
        reader.setScaledSize(size.scaled(kLargest, Qt::KeepAspectRatio));
    return reader.read();
}

// What another try is called. Kept: it takes the failure's title for its own.
QString titleOfFailure()
{
    return text(u"Upload:UploadFailed");
}

std::unique_ptr<ZRCustomAlert> retryAlert(const QString& path)
{
    auto alert = std::make_unique<ZRCustomAlert>();
    const QString retry = text(u"Button:Retry");
    alert->title()->setText(titleOfFailure());
    alert->btnDefault()->setTitle(retry.isEmpty() ? QStringLiteral("untitle") : retry);
    alert->btnCancel()->setTitle(text(u"Button:Cancel"));
    alert->updateMessage(path + QStringLiteral("\n%1?").arg(text(u"Upload:AskingRetry")));
    return alert;
}

std::unique_ptr<ZRCustomAlert> leftOverAlert(const QString& path)
{
    auto alert = std::make_unique<ZRCustomAlert>();
    alert->title()->setText(ZRScreenshotUploadManager::titleOfUploads());
    alert->btnDefault()->setTitle(text(u"Button:Retry"));
    alert->btnCancel()->setTitle(text(u"Button:Cancel"));
    alert->btnOther()->setTitle(text(u"Lumora:Upload:Remove"));
    alert->updateMessage(text(u"Lumora:Upload:LeftOver") + QLatin1Char('\n') + path);
    return alert;
}

}

ZRScreenshotUploadManager& ZRScreenshotUploadManager::defaultManager()
{
    static QPointer<ZRScreenshotUploadManager> s_manager;
    if (!s_manager) {
        s_manager = new ZRScreenshotUploadManager(UploadJournal::standardPath(), standardHistoryPath());
        s_manager->setParent(QCoreApplication::instance());
    }
    return *s_manager;
}

ZRScreenshotUploadManager::ZRScreenshotUploadManager(const QString& journalPath, QString historyPath)
    : m_journal(journalPath)
    , m_historyPath(std::move(historyPath))
{
    NotificationCenter& center = NotificationCenter::defaultCenter();
    center.addObserver(*this, QString::fromUtf16(kProgress),
        [this](const QVariantMap& info) { notificationUploadingUpdateProgress(info); });
    center.addObserver(*this, QString::fromUtf16(kFinished),
        [this](const QVariantMap& info) { notificationUplaodeFinished(info); });
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ZRScreenshotUploadManager::programEnds);
}

std::unique_ptr<ZRScreenshotUploadingView> ZRScreenshotUploadManager::GetUploadingView()
{
    return ZRScreenshotUploadingView::LoadFromNib();
}

std::unique_ptr<ZRScreenshotUploadSettingWindow> ZRScreenshotUploadManager::GetUploadSettingWindow()
{
    return ZRScreenshotUploadSettingWindow::LoadFromNib();
}

void ZRScreenshotUploadManager::askAndUpload(const QString& path)
{
    ZRScreenshotUploadSettingWindow* window = GetUploadSettingWindow().release(); // goes when it has ended
    ZRUploadToCloudContentView* form = ZRUploadToCloudContentView::loadFromNibNamed().release();
    connect(qApp, &QCoreApplication::aboutToQuit, window, &QObject::deleteLater);
    form->setImage(previewOf(path));
    form->setSureButtonActtion([this, window] { sureUploadToImage(*window); });
    window->setDocumentView(form);
    window->onEnded = [this, window, form, path](int code) {
        window->deleteLater();
        AppSettings::restoreLastRunningAndActiveApp();
        if (code == ZRScreenshotUploadSettingWindow::kConfirmed)
            uploadScreenShotToCloud(path, {}, form->title(), form->password());
        else
            removeTemporaryFile(path);
    };
    AppSettings::updateLastRunningAndActiveApp();
    window->runModal();
}

void ZRScreenshotUploadManager::sureUploadToImage(ZRScreenshotUploadSettingWindow& sender)
{
    sender.stopModal(ZRScreenshotUploadSettingWindow::kConfirmed);
}

void ZRScreenshotUploadManager::uploadScreenShotToCloud(const QString& path, const QString& userName,
    const QString& title, const QString& password, unsigned shareType)
{
    UploadRecord record;
    record.imageFilePath = path;
    record.userName = userName;
    record.password = password;
    record.title = title;
    record.fileName = UploadRules::displayName(path, title);
    record.shareType = shareType;
    if (!QFileInfo::exists(path))
        return postMissingFile(record);
    forget(path);
    UploadRecord& listed = mUploadMacthList[path] = record;
    showProgressOf(listed);
    start(listed);
}

void ZRScreenshotUploadManager::postMissingFile(const UploadRecord& record)
{
    const QString body =
        QStringLiteral("%1 %2!.The file doesn't exist").arg(record.fileName, titleOfFailure());
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().deliverZRNotification(
        std::make_unique<ZRBasicLocalNotification>(titleOfUploads(), body, kIcon));
}

void ZRScreenshotUploadManager::showProgressOf(UploadRecord& record)
{
    ZRScreenshotUploadingView* view = GetUploadingView().release(); // the notice's from here on
    auto notification = std::make_unique<ZRCustomLocalNotification>(view);
    view->setUploadFilePath(record.imageFilePath);
    view->setCancelAction([this, view] { cancelUplading(*view); });
    notification->setAutoHiddenDelayTime(kShownSeconds);
    notification->setIsAutoHidden(false);
    notification->setMouseDownExitWithFadeOutEnable(false);
    record.view = view;
    record.localNotification = notification.get();
    ZRLocalNotificationCenter::defaultLocalNotificationCenter().deliverZRCustomNotification(
        std::move(notification));
}

void ZRScreenshotUploadManager::start(UploadRecord& record)
{
    UploadImageMeta meta;
    meta.setMetaTitle(record.title);
    meta.setMetaPassword(record.password);
    meta.setMetaFileName(record.imageFilePath);
    record.Uploader = new CommUpload(QUrl(AppSettings::uploadEndpoint()));
    record.Uploader->setParent(this);
    record.Uploader->uploadImageToScreenshotWithImageMeta(
        meta, [this, path = record.imageFilePath](double fraction) { progressChanged(path, fraction); },
        [this, path = record.imageFilePath](const UploadResult& result) { completed(path, result); },
        [this, path = record.imageFilePath](const QString& error) { failed(path, error, titleOfFailure()); });
}

UploadRecord* ZRScreenshotUploadManager::recordOf(const QString& path)
{
    const auto found = mUploadMacthList.find(path);
    if (found == mUploadMacthList.end()) {
        CommLog::log(QStringLiteral("uploadInfo is nil"));
        return nullptr;
    }
    if (!found->second.localNotification)
        CommLog::log(QStringLiteral("localNotification"));
    else if (!found->second.view)
        CommLog::log(QStringLiteral("localNotification's contentView is nil"));
    return &found->second;
}

void ZRScreenshotUploadManager::progressChanged(const QString& path, double fraction)
{
    const UploadRecord* record = recordOf(path);
    if (record && record->view)
        record->view->updateUploadingProgress(UploadRules::shownProgress(fraction));
}

void ZRScreenshotUploadManager::completed(const QString& path, const UploadResult& result)
{
    CommLog::log(QStringLiteral("%1 -- upload").arg(result.link));
    keepDeleteLink(result);
    UploadRecord* record = recordOf(path);
    if (!record)
        return;
    if (record->shareType <= UploadRules::kPinterest)
        showLink(*record, UploadRules::linkFor(result, record->shareType));
    finish(*record);
}

void ZRScreenshotUploadManager::showLink(const UploadRecord& record, const QString& link)
{
    if (AppSettings::IsOpenScreenshotLinkAfterUpload() && !link.isEmpty()) {
        CommUtils::OpenURL(link);
        return;
    }
    if (!link.isEmpty())
        QGuiApplication::clipboard()->setText(link);
    if (!record.view)
        return;
    record.view->setIsFinished(true, link);
    record.view->setFinishedNote(link.isEmpty() ? QString() : text(u"Lumora:Upload:LinkCopied"));
}

void ZRScreenshotUploadManager::finish(UploadRecord& record)
{
    if (record.view)
        record.view->updateUploadingProgress(1.0);
    if (record.localNotification) {
        record.localNotification->setMouseDownExitWithFadeOutEnable(true);
        record.localNotification->setIsAutoHidden(true);
    }
    giveUp(QString(record.imageFilePath));
}

// The link that deletes a picture is given to its sender once, and is not for the log.
void ZRScreenshotUploadManager::keepDeleteLink(const UploadResult& result) const
{
    if (result.deleteLink.isEmpty())
        return;
    const QString now = QDateTime::currentDateTime().toString(Qt::ISODate);
    const QString line = QStringLiteral("%1 %2 %3\n").arg(now, result.link, result.deleteLink);
    QDir().mkpath(QFileInfo(m_historyPath).path());
    ToolFile::writeData(line.toUtf8(), m_historyPath, true);
}

void ZRScreenshotUploadManager::cancelUplading(const ZRScreenshotUploadingView& view)
{
    for (const auto& [path, record] : mUploadMacthList) {
        if (path == view.uploadFilePath() && record.Uploader)
            record.Uploader->cancelUploadImageToScreenshot();
    }
    if (const auto* notification = dynamic_cast<ZRCustomLocalNotification*>(view.parentWidget()))
        notification->exitWithFadeOut();
}

void ZRScreenshotUploadManager::failed(const QString& path, const QString& error, const QString& retryTitle)
{
    if (UploadRules::isCancellation(error)) {
        CommLog::log(QStringLiteral("User cancel the upload file :%1"), path);
        m_journal.remove(path);
        forget(path);
        return;
    }
    CommLog::log(QStringLiteral("Upload failed. error :%1 , file :%2"), error, path);
    CommLog::log(QStringLiteral("upload file :'%1' failed. reason : %2"), path, error);
    if (const UploadRecord* record = recordOf(path))
        askRetry(*record, retryTitle);
}

void ZRScreenshotUploadManager::askRetry(const UploadRecord& record, const QString& retryTitle)
{
    ZRCustomAlert::run(
        retryAlert(record.imageFilePath), [manager = QPointer(this), record, retryTitle](int code) {
            if (!manager)
                return;
            if (code == ZRCustomAlert::kDefault)
                manager->uploadScreenShotToCloud(
                    record.imageFilePath, record.userName, retryTitle, record.password, record.shareType);
            else
                manager->giveUp(record.imageFilePath);
            if (record.localNotification)
                record.localNotification->exitWithFadeOut();
        });
}

void ZRScreenshotUploadManager::giveUp(const QString& path)
{
    forget(path);
    removeTemporaryFile(path);
}

QString ZRScreenshotUploadManager::titleOfUploads()
{
    return text(u"Upload:Title").replace(QLatin1String("[#Website#]"), kService);
}

bool ZRScreenshotUploadManager::hasEndpoint()
{
    return CommUpload::isEndpoint(QUrl(AppSettings::uploadEndpoint()));
}

void ZRScreenshotUploadManager::offerLeftOver()
{
    if (!hasEndpoint())
        return;
    for (const QString& path : m_journal.leftOver()) {
        ZRCustomAlert::run(leftOverAlert(path), [manager = QPointer(this), path](int code) {
            if (!manager)
                return;
            if (code == ZRCustomAlert::kDefault)
                manager->askAndUpload(path);
            else if (code == ZRCustomAlert::kOther)
                manager->removeTemporaryFile(path);
            else
                manager->m_journal.remove(path); // it stays where it is, as a picture of the user's
        });
    }
}

void ZRScreenshotUploadManager::removeTemporaryFile(const QString& path)
{
    if (!m_journal.contains(path))
        return;
    QFile::remove(path);
    m_journal.remove(path);
}

// The uploader may be calling just now.
void ZRScreenshotUploadManager::forget(const QString& path)
{
    const auto record = mUploadMacthList.extract(path);
    if (record && record.mapped().Uploader)
        record.mapped().Uploader->deleteLater();
}

void ZRScreenshotUploadManager::programEnds()
{
    for (const auto& [path, record] : mUploadMacthList)
        delete record.Uploader.data();
}

void ZRScreenshotUploadManager::notificationUploadingUpdateProgress(const QVariantMap& info)
{
    progressChanged(info[kFilePath].toString(), info[kFraction].toDouble());
}

void ZRScreenshotUploadManager::notificationUplaodeFinished(const QVariantMap& info)
{
    UploadRecord* record = recordOf(info[kFilePath].toString());
    if (!record)
        return;
    if (!info[kIsSuccess].toBool())
        return failed(record->imageFilePath, info[kError].toString(), record->title);
    showLink(*record, info[kLink].toString());
    finish(*record);
}
