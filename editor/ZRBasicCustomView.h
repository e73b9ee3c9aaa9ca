#pragma once

#include "editor/EntityRecord.h"
#include "editor/HandleRules.h"

#include <memory>

// One annotation on the region: what was drawn, how it looks, how it is hit, moved, resized and undone. Not a
// widget: the editor view draws it from its record and forwards the pointer's events. Points of the editor
// view.
class ZRBasicCustomView {
public:
    ZRBasicCustomView();
    virtual ~ZRBasicCustomView() = default;
    ZRBasicCustomView(const ZRBasicCustomView&) = delete;
    ZRBasicCustomView& operator=(const ZRBasicCustomView&) = delete;

    // A new annotation of a tool; null for a tool that makes none. Kept: the identifiers' spelling.
    static std::unique_ptr<ZRBasicCustomView> createNewEntityWithGratiffitID(const QString& id);
    static ZRPoint getPointWithEntityVctualRect(ZRRect rect, int direction);
    // The zero point where there is none.
    static ZRPoint getPointFromPointsList(const DragPoints& points, size_t index);

    const QString& viewId() const { return mViewID; }
    void setGraffitViewID(const QString& id);
    qint32 lineWidth() const { return mLineWidth; }
    void setLineWidth(qint32 points) { mLineWidth = points; }
    QColor color() const { return mColor; }
    // Red for a colour that is none.
    void setColor(const QColor& color);
    const DragPoints& dragPoints() const { return mDragePointList; }
    ZRRect vctualRect() const { return mVctualRect; }
    void setVctualRect(ZRRect rect) { mVctualRect = rect; }
    int clickOnFromDirection() const { return resizeDirection; }

    virtual bool isFocusOn() const { return _isFocusOn; }
    virtual void registerFocusOn() { _isFocusOn = true; }
    virtual void unregisterFocusOn() { _isFocusOn = false; }
    void setIsFocusOn(bool isOn);
    bool isDrawDone() const { return _isDrawDone; }
    // The drag that creates it has ended; from then on drags move and resize.
    void setIsDrawDone() { _isDrawDone = true; }

    // What is drawn now; it refers to the annotation's own points.
    virtual EntityRecord record() const;

    // The place of the press while there is no such point.
    ZRPoint getPointWithIndex(size_t index) const;
    // The first drag point with its one coordinate replaced by the extreme one among all.
    ZRPoint mostPointWithDirection(int direction) const;
    ZRPoint getAnglePointWithDirection(int direction) const;
    int getResizeDirection(ZRPoint point) const;
    void addDragPoint(ZRPoint point);
    // Remembers in clickOnFromDirection() which handle was hit, where the shape has handles.
    virtual bool isClickOn(ZRPoint point);
    // Fits the rectangle to the drag points.
    virtual ZRRect sizeToFit() { return {}; }
    virtual void updateNewFrame() { }

    // What revoke() brings back: the rectangle of now.
    void remember() { mDrageMoveList.push_back(mVctualRect); }
    // The rectangle of before the latest press; nothing where that press made the annotation.
    void revoke();
    bool isRemoveView() const { return mDrageMoveList.size() < 2; }
    // Whether one undo takes it away, whatever was done to it since it was made.
    virtual bool isUndoneWhole() const { return false; }
    // Moves points, rectangle and what can be revoked: the space they are counted in has moved.
    void shift(double dx, double dy);
    // Makes points and rectangle what they were at another time.
    void restore(const DragPoints& points, ZRRect rect);

    virtual void mouseDown(ZRPoint point);
    virtual void mouseDragged(ZRPoint point);
    virtual void mouseUp(ZRPoint point);
    // The pointer's shape over the annotation, where the screen shows `colorThere`.
    Qt::CursorShape mouseMoved(ZRPoint point, const QColor& colorThere);

protected:
    // A drag of the whole annotation.
    virtual void moveBy(ZRPoint step);
    void movePoints(double dx, double dy);
    void replacePoint(size_t index, ZRPoint point);
    ZRRect pointExtent() const { return m_extent; }
    // By how far the pointer is from where it was seen last, which is then here.
    ZRPoint stepTo(ZRPoint point);
    virtual bool needsBorder() const { return false; }
    virtual const char* className() const { return "ZRBasicCustomView"; }

    int resizeDirection = kNoHandle; // held since the latest hit test

private:
    void pointsChanged();

    ZRPoint mBegionPoint; // where the pointer was seen last
    DragPoints mDragePointList;
    QColor mColor{Qt::red};
    ZRRect mVctualRect;
    QString mViewID = QStringLiteral("");
    bool _isFocusOn = false;
    bool _isDrawDone = false;
    qint32 mLineWidth = 3;              // points
    std::vector<ZRRect> mDrageMoveList; // the rectangle before each press
    ZRRect m_extent;                    // of all drag points
    quint32 m_revision;
};
