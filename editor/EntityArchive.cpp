#include "editor/EntityArchive.h"

#include "editor/ZRGaussianBlur.h"
#include "editor/ZRTextEditor.h"

#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace {

constexpr qint64 kLeastEntityBytes = 40; // no annotation takes fewer
constexpr qint64 kPointBytes = 8;

void prepare(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_6_4);
    stream.setByteOrder(QDataStream::LittleEndian);
}

// Whether so many things of a size may be in what is left to read.
bool holds(const QDataStream& stream, quint32 count, qint64 bytesEach)
{
    return stream.status() == QDataStream::Ok && count <= stream.device()->bytesAvailable() / bytesEach;
}

void write(QDataStream& stream, const DragPoints& points)
{
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream << quint32(points.size());
    for (const DragPoint point : points)
        stream << point.x << point.y;
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

bool read(QDataStream& stream, DragPoints& points)
{
    quint32 count = 0;
    stream >> count;
    if (!holds(stream, count, kPointBytes))
        return false;
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    points.resize(count);
    bool areNumbers = true;
    for (DragPoint& point : points) {
        stream >> point.x >> point.y;
        areNumbers = areNumbers && std::isfinite(point.x) && std::isfinite(point.y);
    }
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
    return areNumbers;
}

void write(QDataStream& stream, const EntityArchive& e)
{
    stream << e.idName << e.bounds.x << e.bounds.y << e.bounds.width << e.bounds.height;
    write(stream, e.dragPoints);
    stream << e.lineWidth << e.color.rgba() << e.text << e.font.toString();
}

bool read(QDataStream& stream, EntityArchive& e)
{
    stream >> e.idName >> e.bounds.x >> e.bounds.y >> e.bounds.width >> e.bounds.height;
    if (!read(stream, e.dragPoints))
        return false;
    QRgb color = 0;
    QString font;
    stream >> e.lineWidth >> color >> e.text >> font;
    e.color = QColor::fromRgba(color);
    const bool isPlaced = std::isfinite(e.bounds.x) && std::isfinite(e.bounds.y) &&
                          std::isfinite(e.bounds.width) && std::isfinite(e.bounds.height);
    return e.font.fromString(font) && isPlaced && stream.status() == QDataStream::Ok;
}

}

EntityArchive EntityArchive::of(const ZRBasicCustomView& entity)
{
    EntityArchive archive{entity.viewId(), entity.vctualRect(), entity.dragPoints(), entity.lineWidth(),
        entity.color(), {}, {}};
    if (const auto* text = dynamic_cast<const ZRTextEditor*>(&entity)) {
        archive.text = text->textField() ? text->textField()->textString() : QString();
        archive.font = text->textFont();
    } else if (const auto* area = dynamic_cast<const ZRGaussianBlur*>(&entity)) {
        archive.lineWidth = area->strength();
    }
    return archive;
}

std::unique_ptr<ZRBasicCustomView> EntityArchive::restored() const
{
    auto entity = ZRBasicCustomView::createNewEntityWithGratiffitID(idName);
    if (!entity)
        return nullptr;
    entity->setLineWidth(lineWidth);
    entity->setColor(color);
    if (auto* box = dynamic_cast<ZRTextEditor*>(entity.get()))
        box->restoreText(text, font);
    else
        entity->remember(); // the press that made it
    entity->restore(dragPoints, bounds);
    entity->setIsDrawDone();
    entity->unregisterFocusOn();
    return entity;
}

QByteArray EntityArchive::encoded(const std::vector<EntityArchive>& entities)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    prepare(stream);
    stream << quint32(entities.size());
    for (const EntityArchive& entity : entities)
        write(stream, entity);
    return bytes;
}

std::optional<std::vector<EntityArchive>> EntityArchive::decoded(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    prepare(stream);
    quint32 count = 0;
    stream >> count;
    if (!holds(stream, count, kLeastEntityBytes))
        return std::nullopt;
    std::vector<EntityArchive> entities(count);
    for (EntityArchive& entity : entities)
        if (!read(stream, entity))
            return std::nullopt;
    return entities;
}
