#pragma once

#include "platform/Frame.h"

#include <QImage>
#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>

// A finished picture on its way out.
struct Picture {
    QImage image;                       // Format_RGB32; null when the region holds no pixel
    std::shared_ptr<const Frame> frame; // whose pixels the image may borrow
};

// Encodes pictures off the main thread, one after another, so that the keyboard and the desktop are the
// user's again at once. Used on the main thread, where `done` is called with the reason of a failure, empty
// for none.
class PictureJobs : public QObject {
public:
    using Done = std::function<void(const QString& failure)>;

    PictureJobs();
    // Waits for what is under way.
    ~PictureJobs() override;

    void save(Picture picture, const QString& path, const QString& imageType, Done done);
    // Hands the bytes of a PNG on; none when memory is short.
    void encode(Picture picture, std::function<void(const QByteArray& png)> done);
    // The clipboard is ours at once; who asks for the picture before it is encoded waits for it.
    void copy(Picture picture, Done done);

private:
    void finish(Done done, const QString& failure);

    QThreadPool m_pool;
};
