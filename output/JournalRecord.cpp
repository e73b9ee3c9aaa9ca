#include "output/JournalRecord.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace {

constexpr quint32 kMagic = 0x4c4d434a;
constexpr quint32 kVersion = 1;
constexpr qsizetype kSumSize = 20;

QByteArray sumOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QDataStream& operator<<(QDataStream& stream, const ZRRect& r)
{
    return stream << r.x << r.y << r.width << r.height;
}

QDataStream& operator>>(QDataStream& stream, ZRRect& r)
{
    return stream >> r.x >> r.y >> r.width >> r.height;
}

bool isPlaced(const ZRRect& r)
{
    return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) && std::isfinite(r.height);
}

bool isUsable(const JournalRecord& record)
{
    return record.display.isValid() && record.display.scale > 0 && std::isfinite(record.display.scale) &&
           isPlaced(record.region) && !record.pictureName.contains(QLatin1Char('/'));
}

}

QByteArray JournalRecord::encoded() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << kMagic << kVersion << time << pictureName << display.id << display.name << display.pixels
           << display.scale << display.frame << region << annotations;
    return bytes + sumOf(bytes);
}

std::optional<JournalRecord> JournalRecord::decoded(const QByteArray& bytes, QString* reason)
{
    const QByteArray content = bytes.chopped(qMin(kSumSize, bytes.size()));
    QDataStream stream(content);
    stream.setVersion(QDataStream::Qt_6_4);
    quint32 magic = 0;
    quint32 version = 0;
    JournalRecord record;
    stream >> magic >> version;
    if (magic == kMagic && version != kVersion) {
        *reason = QStringLiteral("it was written by another version of the program");
        return std::nullopt;
    }
    stream >> record.time >> record.pictureName >> record.display.id >> record.display.name >>
        record.display.pixels >> record.display.scale >> record.display.frame >> record.region >>
        record.annotations;
    if (magic != kMagic || bytes.right(kSumSize) != sumOf(content) || !isUsable(record)) {
        *reason = QStringLiteral("it is damaged");
        return std::nullopt;
    }
    return record;
}
