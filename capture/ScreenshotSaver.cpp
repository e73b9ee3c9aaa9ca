#include "capture/ScreenshotSaver.h"

#include "output/ImageWriter.h"

ScreenshotSaver::ScreenshotSaver()
{
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(0); // no thread lingers, so none wakes up later
}

ScreenshotSaver::~ScreenshotSaver()
{
    m_pool.waitForDone();
}

void ScreenshotSaver::save(Picture picture, const QString& path, const QString& imageType,
    std::function<void(const QString& failure)> done)
{
    m_pool.start([this, picture = std::move(picture), path, imageType, done = std::move(done)]() mutable {
        const QString failure = ImageWriter::write(path, picture.image, imageType).reason;
        picture = {}; // the frame goes before anybody hears of the end
        QMetaObject::invokeMethod(
            this, [done = std::move(done), failure] { done(failure); }, Qt::QueuedConnection);
    });
}
