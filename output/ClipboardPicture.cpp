#include "output/ClipboardPicture.h"

#include "output/ImageWriter.h"

namespace {

const QString kPng = QStringLiteral("image/png");
const QString kTiff = QStringLiteral("image/tiff");

}

EncodedPicture EncodedPicture::of(const QImage& picture)
{
    return {ImageWriter::encode(picture, QStringLiteral(".png"), PngEffort::Quick),
        ImageWriter::encode(picture, QStringLiteral(".tiff"))};
}

ClipboardPicture::ClipboardPicture(std::shared_future<EncodedPicture> picture)
    : m_picture(std::move(picture))
{
}

bool ClipboardPicture::hasFormat(const QString& mimeType) const
{
    return formats().contains(mimeType);
}

QStringList ClipboardPicture::formats() const
{
    return {kPng, kTiff};
}

QVariant ClipboardPicture::retrieveData(const QString& mimeType, QMetaType) const
{
    if (mimeType == kPng)
        return m_picture.get().png;
    if (mimeType == kTiff)
        return m_picture.get().tiff;
    return {};
}
