#include "output/ImageWriter.h"

#include "commonutils/AtomicFile.h"
#include "output/BmpEncoder.h"
#include "output/GifEncoder.h"
#include "output/JpegEncoder.h"
#include "output/TiffEncoder.h"

#include <QImage>

#include <exception>

namespace {

struct Type {
    QLatin1String extension;
    PageBuffer (*encode)(const QImage& image);
};

const Type kTypesBesidePng[] = {
    {QLatin1String(".jpg"), JpegEncoder::encode},
    {QLatin1String(".jpeg"), JpegEncoder::encode},
    {QLatin1String(".bmp"), BmpEncoder::encode},
    {QLatin1String(".tiff"), TiffEncoder::encode},
    {QLatin1String(".gif"), GifEncoder::encode},
};

PageBuffer encodeOpaque(const QImage& image, const QString& imageType, PngEffort effort)
{
    for (const Type& type : kTypesBesidePng) {
        if (imageType == type.extension)
            return type.encode(image);
    }
    return PngEncoder::encode(image, effort);
}

PageBuffer encodePages(const QImage& image, const QString& imageType, PngEffort effort)
{
    try {
        const bool fits = image.format() == QImage::Format_RGB32;
        const QImage opaque = fits ? image : image.convertToFormat(QImage::Format_RGB32);
        return opaque.isNull() ? PageBuffer() : encodeOpaque(opaque, imageType, effort);
    } catch (const std::exception&) { // memory for a table or a row
        return {};
    }
}

} // namespace

WriteResult ImageWriter::write(const QString& path, const QImage& image, const QString& imageType)
{
    const PageBuffer file = encodePages(image, imageType, PngEffort::Small);
    if (file.isEmpty())
        return {false, QStringLiteral("a picture of %1x%2 pixels cannot be encoded as \"%3\"")
                           .arg(image.width())
                           .arg(image.height())
                           .arg(imageType)};
    const QString reason = AtomicFile::write(path, file.data(), file.size(), AtomicFile::Access::Umask);
    return {reason.isEmpty(), reason};
}

QByteArray ImageWriter::encode(const QImage& image, const QString& imageType, PngEffort effort)
{
    const PageBuffer file = encodePages(image, imageType, effort);
    return QByteArray(reinterpret_cast<const char*>(file.data()), qsizetype(file.size()));
}
