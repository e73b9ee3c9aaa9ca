#pragma once

#include "editor/EntityRecord.h"

#include <QImage>

#include <vector>

class ZRBasicCustomView;
class ZRGaussianBlur;

// What a press came to.
enum class PressStatus { Nothing = 0, Created = 1, Hit = 2 };
// What becomes of a drag.
enum class DragStatus { Ignored = 0, Forwarded = 2 };

// Answers what the editor view asks about the annotations. Points of the editor view.
class ZREditorRequestDelegate {
public:
    virtual ~ZREditorRequestDelegate() = default;

    struct Press {
        PressStatus status = PressStatus::Nothing;
        ZRBasicCustomView* graffitEntity = nullptr; // null too where the tool makes no annotation
    };
    virtual Press EditorRequest_GetCurrentStatus(ZRPoint point) = 0;
    // After every press that came to something.
    virtual void EditorRequest_DidUDownEntityWithEntity(ZRBasicCustomView* entity) = 0;
    // Sets the pointer's shape; the annotation at the point or null.
    virtual ZRBasicCustomView* EditorRequest_UpdateCurrentEntityMoveStatus(ZRPoint point) = 0;
    virtual DragStatus EditorRequest_UpdateCurrentEntityDragStatus(ZRPoint point) = 0;
    virtual void EditorRequest_DidUpdateCurrentEntity() = 0;
    // All annotations but text boxes, in drawing order.
    virtual std::vector<EntityRecord> EditorRequest_getAllGraffitRect() const = 0;
    // The same with the text boxes.
    virtual std::vector<EntityRecord> allRecords() const = 0;
    // The areas that cover what is below them, in drawing order.
    virtual std::vector<ZRGaussianBlur*> EditorRequest_coveredAreas() const = 0;
    // The frozen pixels of a rectangle of the overlay; null when there are none.
    virtual QImage EditorRequest_getCurrentImageFromTheRegion(ZRRect rect) const = 0;
};
