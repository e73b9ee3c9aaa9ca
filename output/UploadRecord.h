#pragma once

#include "commonutils/CommUpload.h"
#include "output/ZRCustomLocalNotification.h"
#include "output/ZRScreenshotUploadingView.h"

#include <QPointer>
#include <QString>

// What is known of one upload.
struct UploadRecord {
    QString imageFilePath; // of the temporary file
    QString userName;
    QString password;
    QString title;
    QString fileName; // as the user reads it
    unsigned shareType = 0;
    QPointer<CommUpload> Uploader;
    // They are the notification centre's, which drops them when they have gone.
    QPointer<ZRCustomLocalNotification> localNotification;
    QPointer<ZRScreenshotUploadingView> view;
};
