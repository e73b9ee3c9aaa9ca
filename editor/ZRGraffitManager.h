#pragma once

#include "editor/EveryMovement.h"
#include "editor/GraffitHistory.h"
#include "editor/RegionImageSource.h"
#include "editor/ZREditorDelegate.h"
#include "editor/ZREditorRequestDelegate.h"
#include "editor/ZREditorView.h"

#include <QPointer>

#include <functional>

// The annotations of one region: their list, the tool, the style, the selection, and undo. The order of the
// list is the order of drawing and, backwards, that of undo. Main thread only. Points of the editor view
// unless said otherwise.
class ZRGraffitManager : public ZREditorRequestDelegate, public ZREditorDelegate {
public:
    // Makes the editor view, without a place yet.
    ZRGraffitManager();
    ~ZRGraffitManager() override;

    void setMainManager(RegionImageSource* source); // not owned
    // Puts the editor view into a view of the overlay's size; `rect` is the region, in overlay points.
    void addGraffitViewTo(View& host, ZRRect rect);
    // The region moved: the annotations travel with it. Or it was resized: they stay on the picture.
    void updateGraffitView(ZRRect rect);
    ZREditorView* editorView() const { return mEditorView; } // null once its host is gone
    // The pointer's shape over the region.
    std::function<void(Qt::CursorShape)> onCursor;
    // No annotation, no view on the host: the manager is finished.
    void clear();

    // The tool's identifier; null for no tool.
    void updateGraffitID(const QString& id);
    const QString& graffitID() const { return mCurGraffitID; }
    // The style of new annotations, given to the selected one as well.
    void setLineWidth(qint32 points);
    qint32 lineWidth() const { return mLineWidth; }
    void setCurColor(const QColor& color);
    const QColor& curColor() const { return mColor; }
    void setCurFont(const QFont& font);
    const QFont& curFont() const { return mFont; }
    void setEraser(bool isOn) { _eraser = isOn; }
    bool eraser() const { return _eraser; }

    // The new annotation of the current tool, at the end of the list; null where the tool makes none.
    ZRBasicCustomView* createNewGraffitEntity();
    // Kept: of several annotations at the point the lowest.
    ZRBasicCustomView* isClickOnGraffit(ZRPoint point) const;
    void clearFocusOnGraffitView();
    // Whether keys belong to a text that is edited.
    bool isTextEdited() const { return mEditorView && mEditorView->editingEditor(); }
    void deleteGraffitFromBackSpace();

    // Kept: the count of annotations narrowed to a signed byte, so that 256 of them count as none.
    bool isCanRevoke() const;
    // One step back: the last annotation's rectangle of before its latest press, or its removal. Kept: lines
    // and strokes get back their rectangle only.
    void goBackDrawView();
    void revokeDrawView();
    // The same with lines and strokes where they were, and with what eraser and delete key took.
    void undoDrawView();
    // Does again what was undone last; nothing once something else has changed.
    void goForwardDrawView();

    // All annotations as bytes, and those of such bytes in the place of all; false, and no change, for bytes
    // that are none of ours.
    QByteArray archived() const;
    bool restore(const QByteArray& archive);
    // Whether an area is hidden by a mosaic.
    bool hasMosaic() const;
    // Called after annotations were made, changed or taken away by the mouse or by an edit's end.
    std::function<void()> onChange;

    // The frozen display with the annotations; `pixels` of the display and inside it. Null without any.
    QImage composed(const QRect& pixels) const;

    Press EditorRequest_GetCurrentStatus(ZRPoint point) override;
    void EditorRequest_DidUDownEntityWithEntity(ZRBasicCustomView* entity) override;
    ZRBasicCustomView* EditorRequest_UpdateCurrentEntityMoveStatus(ZRPoint point) override;
    DragStatus EditorRequest_UpdateCurrentEntityDragStatus(ZRPoint point) override;
    void EditorRequest_DidUpdateCurrentEntity() override;
    std::vector<EntityRecord> EditorRequest_getAllGraffitRect() const override;
    QImage EditorRequest_getCurrentImageFromTheRegion(ZRRect rect) const override;
    std::vector<EntityRecord> allRecords() const override;
    std::vector<ZRGaussianBlur*> EditorRequest_coveredAreas() const override;
    void EditorDelegate_deleteNullTextField(ZRBasicCustomView* textField) override;
    void EditorDelegate_endEdit() override;

private:
    using Entities = std::vector<std::unique_ptr<ZRBasicCustomView>>;

    void tellOfChange() const;
    void change(ZRBasicCustomView& entity, const std::function<void()>& how);
    Entities::iterator find(const ZRBasicCustomView* entity);
    void insert(std::unique_ptr<ZRBasicCustomView> entity, size_t index);
    std::unique_ptr<ZRBasicCustomView> take(Entities::iterator place);
    void erase(ZRBasicCustomView* entity);
    void select(ZRBasicCustomView* entity);
    void unselect();
    void bringToFront(const ZRBasicCustomView* entity);
    DragPoints revokeLast();
    void shiftAll(double dx, double dy);
    void setCursor(Qt::CursorShape shape) const;

    QString mCurGraffitID;
    std::optional<EveryMovement> m_everyMovement; // while there is a tool
    QPointer<ZREditorView> mEditorView;
    Entities mGraffitEntitys;
    ZRBasicCustomView* mLastFocusOnEntity = nullptr; // the selected one
    RegionImageSource* mTheMainManager = nullptr;
    qint32 mLineWidth = 3;
    QColor mColor{Qt::red};
    QFont mFont;
    bool _eraser = false;
    GraffitHistory m_history;
};
