#include "service/PictureCheck.h"

#include <QFile>
#include <QImageReader>

namespace {

struct Type {
    const char* format;
    const char* contentType;
    QByteArray begin;
    QByteArray end; // readers forgive a missing end, and nothing may follow it
};

const Type kTypes[] = {
    {"jpeg", "image/jpeg", QByteArrayLiteral("\xff\xd8\xff"), QByteArrayLiteral("\xff\xd9")},
    {"png", "image/png", QByteArrayLiteral("\x89PNG\r\n\x1a\n"), QByteArrayLiteral("IEND\xae\x42\x60\x82")},
    {"gif", "image/gif", QByteArrayLiteral("GIF8"), QByteArrayLiteral(";")},
};

bool holdsAt(QFile& file, qint64 offset, const QByteArray& bytes)
{
    return offset >= 0 && file.seek(offset) && file.read(bytes.size()) == bytes;
}

const Type* typeOf(QFile& file)
{
    for (const Type& type : kTypes) {
        if (holdsAt(file, 0, type.begin) && holdsAt(file, file.size() - type.end.size(), type.end))
            return &type;
    }
    return nullptr;
}

}

PictureCheck::PictureCheck(std::int64_t maxPixels)
    : m_maxPixels(maxPixels)
{
    constexpr std::int64_t kBytesAPixel = 8; // of the widest format that a picture may decode to
    QImageReader::setAllocationLimit(int(maxPixels * kBytesAPixel / (1 << 20)) + 1);
}

PictureCheck::Result PictureCheck::check(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const Type* type = typeOf(file);
    if (!type || !file.seek(0))
        return {};
    QImageReader reader(&file, type->format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (std::int64_t(size.width()) * size.height() > m_maxPixels)
        return {Verdict::TooManyPixels, {}, 0, 0};
    const std::lock_guard lock(m_oneAtATime);
    const QImage picture = reader.read();
    if (picture.isNull())
        return {};
    return {Verdict::Picture, type->contentType, picture.width(), picture.height()};
}
