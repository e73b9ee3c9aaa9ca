#include "capture/PictureJobs.h"

#include "output/ClipboardPicture.h"
#include "output/ImageWriter.h"

#include <QClipboard>
#include <QGuiApplication>

PictureJobs::PictureJobs()
{
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(0); // no thread lingers, so none wakes up later
}

PictureJobs::~PictureJobs()
{
    m_pool.waitForDone();
}

void PictureJobs::save(Picture picture, const QString& path, const QString& imageType, Done done)
{
    m_pool.start([this, picture = std::move(picture), path, imageType, done = std::move(done)]() mutable {
        const QString failure = ImageWriter::write(path, picture.image, imageType).reason;
        picture = {}; // the frame goes before anybody hears of the end
        finish(std::move(done), failure);
    });
}

void PictureJobs::encode(Picture picture, std::function<void(const QByteArray& png)> done)
{
    m_pool.start([this, picture = std::move(picture), done = std::move(done)]() mutable {
        const QByteArray png = ImageWriter::encode(picture.image, QStringLiteral(".png"));
        picture = {};
        QMetaObject::invokeMethod(
            this, [done = std::move(done), png] { done(png); }, Qt::QueuedConnection);
    });
}

void PictureJobs::copy(Picture picture, Done done)
{
    auto encoding = std::make_shared<std::promise<EncodedPicture>>();
    QGuiApplication::clipboard()->setMimeData(new ClipboardPicture(encoding->get_future().share()));
    m_pool.start([this, picture = std::move(picture), encoding, done = std::move(done)]() mutable {
        EncodedPicture encoded = EncodedPicture::of(picture.image);
        picture = {};
        const bool isComplete = encoded.isComplete();
        encoding->set_value(std::move(encoded));
        finish(std::move(done), isComplete ? QString() : QStringLiteral("there is not enough memory"));
    });
}

void PictureJobs::finish(Done done, const QString& failure)
{
    QMetaObject::invokeMethod(
        this, [done = std::move(done), failure] { done(failure); }, Qt::QueuedConnection);
}
