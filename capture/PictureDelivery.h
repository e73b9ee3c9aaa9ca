#pragma once

#include "capture/CaptureOutcome.h"
#include "capture/PictureJobs.h"
#include "output/UploadRules.h"

#include <QObject>

#include <functional>
#include <vector>

// Brings finished pictures to where they go, and tells the user and whoever asked how that ended: the latter
// through the report, which each picture calls once. A picture without pixels is a failure of its own.
class PictureDelivery : public QObject {
public:
    using Report = std::function<void(CaptureOutcome)>;

    void deliver(Picture picture, const CaptureTarget& target, const Report& report);
    // To the folder for pictures.
    void save(Picture picture, const Report& report);
    void copy(Picture picture, const Report& report);
    // With the form for a title and a password where the settings ask for it, else at once, for a network.
    // Without an address to upload to it is saved, and a notice tells of the address.
    void upload(Picture picture, const Report& report, UploadRules::ShareType shareType);
    // Nothing is to be brought anywhere, since the region holds no pixel.
    void refuseEmpty(const Report& report);

    // Windows that take keys and notices wait for this, the end of a capture and of its hold on the keyboard.
    void captureIsGone();
    // Whether there is something to wait for.
    std::function<bool()> isCapturing;
    // Shows a saved picture to the user who clicked on its notice.
    std::function<void(const QString& path)> onReveal;

private:
    using Tell = void (PictureDelivery::*)(const QString& path);
    // The path's extension names the type.
    void saveTo(const QString& path, Picture picture, const Report& report,
        Tell tell = &PictureDelivery::tellOfSaved);
    void handToCaller(Picture picture, const Report& report);
    void saveForUpload(Picture picture, const Report& report, UploadRules::ShareType shareType);
    void whenCaptureIsGone(std::function<void()> step);
    void fail(const Report& report, QStringView titleKey, const QString& reason,
        CaptureOutcome::Kind kind = CaptureOutcome::Kind::Failed);
    void tellOfSaved(const QString& path);
    void tellOfCopied();
    void tellOfMissingEndpoint(const QString& path);

    PictureJobs m_jobs;
    std::vector<std::function<void()>> m_afterCapture;
};
