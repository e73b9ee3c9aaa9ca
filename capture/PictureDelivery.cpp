#include "capture/PictureDelivery.h"

#include "capture/ZRScreenShotViewController.h"
#include "commonutils/CommLog.h"
#include "output/ZRScreenshotUploadManager.h"
#include "settings/AppSettings.h"

#include <QFileInfo>

#include <utility>

namespace {

constexpr QStringView kSaveFailed = u"Comm:FaildSaveFile";
constexpr QStringView kCopyFailed = u"Comm:FaildCopyToClipboard";

}

void PictureDelivery::deliver(Picture picture, const CaptureTarget& target, const Report& report)
{
    switch (target.kind) {
    case CaptureTarget::Kind::SaveFolder:
        return save(std::move(picture), report);
    case CaptureTarget::Kind::File:
        return saveTo(target.path, std::move(picture), report);
    case CaptureTarget::Kind::Clipboard:
        return copy(std::move(picture), report);
    case CaptureTarget::Kind::Caller:
        return handToCaller(std::move(picture), report);
    }
}

void PictureDelivery::save(Picture picture, const Report& report)
{
    saveTo(AppSettings::screenshotSavePath(), std::move(picture), report);
}

void PictureDelivery::saveTo(const QString& path, Picture picture, const Report& report, Tell tell)
{
    if (picture.image.isNull())
        return refuseEmpty(report);
    CommLog::log(QStringLiteral("screenshot save path--->%1").arg(path));
    const QSize size = picture.image.size();
    const QString imageType = QLatin1Char('.') + QFileInfo(path).suffix().toLower();
    m_jobs.save(
        std::move(picture), path, imageType, [this, report, path, tell, size](const QString& failure) {
            if (!failure.isEmpty())
                return fail(report, kSaveFailed, failure, CaptureOutcome::Kind::Unwritable);
            CommLog::log(QStringLiteral("save image success"));
            (this->*tell)(path);
            report({.kind = CaptureOutcome::Kind::Saved, .path = path, .size = size});
        });
}

// Nobody but the caller hears of it.
void PictureDelivery::handToCaller(Picture picture, const Report& report)
{
    if (picture.image.isNull())
        return refuseEmpty(report);
    const QSize size = picture.image.size();
    m_jobs.encode(std::move(picture), [this, report, size](const QByteArray& png) {
        if (png.isEmpty())
            return fail(report, kSaveFailed, QStringLiteral("there is not enough memory"));
        CommLog::log(QStringLiteral("hand image data to the caller"));
        report({.kind = CaptureOutcome::Kind::Encoded, .png = png, .size = size});
    });
}

void PictureDelivery::copy(Picture picture, const Report& report)
{
    if (picture.image.isNull())
        return refuseEmpty(report);
    const QSize size = picture.image.size();
    m_jobs.copy(std::move(picture), [this, report, size](const QString& failure) {
        if (!failure.isEmpty())
            return fail(report, kCopyFailed, failure);
        CommLog::log(QStringLiteral("write image data to pasteboard"));
        tellOfCopied();
        report({.kind = CaptureOutcome::Kind::Copied, .size = size});
    });
}

void PictureDelivery::upload(Picture picture, const Report& report, UploadRules::ShareType shareType)
{
    if (ZRScreenshotUploadManager::hasEndpoint())
        saveForUpload(std::move(picture), report, shareType);
    else
        saveTo(AppSettings::screenshotSavePath(), std::move(picture), report,
            &PictureDelivery::tellOfMissingEndpoint);
}

void PictureDelivery::saveForUpload(Picture picture, const Report& report, UploadRules::ShareType shareType)
{
    if (picture.image.isNull())
        return refuseEmpty(report);
    ZRScreenshotUploadManager& manager = ZRScreenshotUploadManager::defaultManager();
    const QString path = UploadRules::temporaryPath(AppSettings::screenshotSavePath());
    const bool isFormShown = AppSettings::isNeedShowUploadToCloudView();
    const QSize size = picture.image.size();
    manager.journal().add(path);
    m_jobs.save(std::move(picture), path, QStringLiteral(".jpg"),
        [this, &manager, report, path, shareType, isFormShown, size](const QString& failure) {
            if (!failure.isEmpty()) {
                manager.journal().remove(path);
                return fail(report, kSaveFailed, failure);
            }
            report({.kind = CaptureOutcome::Kind::Uploading, .size = size});
            whenCaptureIsGone([&manager, path, shareType, isFormShown] {
                if (isFormShown)
                    manager.askAndUpload(path);
                else
                    manager.uploadScreenShotToCloud(path, {}, {}, {}, shareType);
            });
        });
}

void PictureDelivery::whenCaptureIsGone(std::function<void()> step)
{
    if (isCapturing())
        m_afterCapture.push_back(std::move(step));
    else
        step();
}

void PictureDelivery::captureIsGone()
{
    for (auto& step : std::exchange(m_afterCapture, {}))
        QMetaObject::invokeMethod(this, std::move(step), Qt::QueuedConnection);
}

void PictureDelivery::refuseEmpty(const Report& report)
{
    fail(report, kSaveFailed, QStringLiteral("the region holds no part of the display"));
}

// `titleKey` is the text that the user reads.
void PictureDelivery::fail(
    const Report& report, QStringView titleKey, const QString& reason, CaptureOutcome::Kind kind)
{
    const bool isCopy = titleKey == kCopyFailed;
    CommLog::log(QStringLiteral("the picture could not be %1: %2")
                     .arg(isCopy ? QStringLiteral("copied") : QStringLiteral("saved"), reason));
    ZRScreenShotViewController::postLocalNotificationWithMessageTitle(
        AppSettings::getXMLValueForKeywords(titleKey), {});
    report({.kind = kind, .reason = reason});
}

void PictureDelivery::tellOfSaved(const QString& path)
{
    const QString message = AppSettings::getXMLValueForKeywords(u"Comm:ScreenshotSavedTips");
    ZRScreenShotViewController::postLocalNotificationWithMessageTitle(
        AppSettings::getXMLValueForKeywords(u"Comm:SuccSavePicture"),
        QString(message).replace(QLatin1String("[#FilePath#]"), path), [this, path] { onReveal(path); });
}

void PictureDelivery::tellOfMissingEndpoint(const QString& path)
{
    tellOfSaved(path);
    ZRScreenShotViewController::postLocalNotificationWithMessageTitle(
        ZRScreenshotUploadManager::titleOfUploads(),
        AppSettings::getXMLValueForKeywords(u"Lumora:Upload:EndpointMissing"));
}

void PictureDelivery::tellOfCopied()
{
    const QString title = AppSettings::getXMLValueForKeywords(u"Comm:SuccSavePicture");
    ZRScreenShotViewController::postLocalNotificationWithMessageTitle(
        title.isNull() ? QStringLiteral("Save to finish") : title,
        AppSettings::getXMLValueForKeywords(u"Comm:ScreenshotCopiedTips"));
}
