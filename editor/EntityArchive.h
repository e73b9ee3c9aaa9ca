#pragma once

#include "editor/ZRBasicCustomView.h"

#include <QByteArray>
#include <QFont>

#include <optional>

// An annotation as it is kept beyond its capture: what the user made, without what can be made again of it.
struct EntityArchive {
    QString idName;
    ZRRect bounds; // points of the editor view, as the drag points
    DragPoints dragPoints;
    qint32 lineWidth = 3;
    QColor color;
    QString text; // of a text box, with its font
    QFont font;

    static EntityArchive of(const ZRBasicCustomView& entity);
    // The annotation, neither selected nor in an editor view; null for a tool that is not known.
    std::unique_ptr<ZRBasicCustomView> restored() const;

    // All annotations of a region as bytes, and back; bytes that are none of ours give nothing.
    static QByteArray encoded(const std::vector<EntityArchive>& entities);
    static std::optional<std::vector<EntityArchive>> decoded(const QByteArray& bytes);
};
