#pragma once

#include "platform/Frame.h"

#include <QImage>
#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>

// A finished picture on its way to a file.
struct Picture {
    QImage image;                       // Format_RGB32; null when the region holds no pixel
    std::shared_ptr<const Frame> frame; // whose pixels the image may borrow
};

// Writes pictures off the main thread, one after another, so that the keyboard and the desktop are the user's
// again at once. Used on the main thread.
class ScreenshotSaver : public QObject {
public:
    ScreenshotSaver();
    // Waits for what is still being written.
    ~ScreenshotSaver() override;

    // `done` is called on the main thread with the reason of a failure, empty when the file is complete.
    void save(Picture picture, const QString& path, const QString& imageType,
        std::function<void(const QString& failure)> done);

private:
    QThreadPool m_pool;
};
