#pragma once

#include "customui/View.h"
#include "editor/FocusMarks.h"
#include "editor/GraffitCanvas.h"
#include "platform/Frame.h"

#include <QFont>
#include <QRandomGenerator>

#include <functional>

class ZRBasicCustomView;
class ZREditorDelegate;
class ZREditorRequestDelegate;
class ZRGaussianBlur;
class ZRTextEditor;

// The drawing surface over the region: takes the pointer's events there, forwards them to the annotation
// concerned and shows all annotations. The widget fills the overlay; its own space is that of `frame()`,
// points with the origin at the region's bottom-left corner. Repaints no more than what a change touches.
class ZREditorView : public View {
public:
    explicit ZREditorView(QWidget* parent = nullptr);

    void setRequestDelegate(ZREditorRequestDelegate* answers) { requestDelegate = answers; } // not owned
    void setDelegate(ZREditorDelegate* listener) { delegate = listener; }                    // not owned
    // What lies below the annotations.
    void setFrozenDisplay(std::shared_ptr<const Frame> display);
    // Where the region is, in points of the overlay. The annotations travel with it.
    ZRRect frame() const { return m_frame; }
    void setFrame(ZRRect frame);
    // The same for a region whose annotations have already been counted from its new origin, so that they
    // stay where they are on the display.
    void setFrameAround(ZRRect frame);
    void setCurTextFont(const QFont& font) { mTextFont = font; }
    const QFont& curTextFont() const { return mTextFont; }
    void setCurTextColor(const QColor& color) { mTextColor = color; }
    const QColor& curTextColor() const { return mTextColor; }
    bool isDragging() const { return _isDragging; }

    // Makes the annotation of the latest press, a text box, a new one there and starts its edit.
    void addNewTextEditorWithLocation(ZRPoint point);
    static double getNewEditorHeightWithTextFont(const QFont& font);
    // Text boxes take part in the view's events while they are its own; borrowed.
    void addSubview(ZRTextEditor& editor);
    void removeSubview(ZRTextEditor& editor);
    ZRTextEditor* editingEditor() const; // null: no text is edited
    ZRTextEditor* isClickOnEditor(ZRPoint point) const;
    void removeEditorWitchIsNullText();
    // Covers an area anew, by what lies below it now; with it, where it is secure, those that touch it, for
    // no cover is made of what a secure one hides.
    void makePicture(ZRGaussianBlur& area);
    // What a secure mosaic is made of beside the pixels around it; asked once for each.
    std::function<QRandomGenerator()> newRandom = QRandomGenerator::securelySeeded;

    // The frozen display with the annotations, as it is on the screen but for handles. `pixels` of the
    // display.
    QImage composed(const QRect& pixels);

    // To be called before and after an annotation changes, or leaves or enters the list; redisplay() follows.
    void invalidate(const ZRBasicCustomView& entity);
    // Paints what has changed.
    void redisplay();
    void clearSelectedEntity();

    // Events of the overlay, whoever they came through.
    void mouseDown(const ZRMouseEvent& event);
    void mouseDragged(const ZRMouseEvent& event);
    void mouseUp(const ZRMouseEvent& event);
    void mouseMoved(const ZRMouseEvent& event);

private:
    void paintEvent(QPaintEvent* event) override;
    void _drawGraffit(QPainter& painter, const QRegion& dirtyPoints);

    bool pressInEditor(ZRPoint point, int clickCount);
    void showEditor(ZRTextEditor& editor);
    void placeField(const ZRTextEditor& editor) const;
    QRectF widgetRect(ZRRect rect) const;
    bool dragBeyondRegion(ZRPoint point);
    std::vector<ZRGaussianBlur*> secureAreas() const;
    void makeAllPictures();
    void cover(ZRGaussianBlur& area);
    QImage coverOf(const ZRGaussianBlur& area) const;
    QImage originalOf(const ZRGaussianBlur& area) const;
    QRect pixelsBelow(const ZRGaussianBlur& area) const;
    ZRPoint convertPoint(ZRPoint overlayPoint) const;
    QTransform toPixels() const;
    QRect regionPixels() const;
    void startCanvas();
    QRegion invalidateAll();
    void finishGesture();
    void redisplayEntity();
    void paintMovedEntity();
    void showMarks(std::vector<FocusMarks> marks, FocusMarks current);
    QRegion pixelsOf(const FocusMarks& marks) const;
    QRegion markPixels() const;
    QRegion shownPixels() const;
    void updatePixels(const QRegion& pixels);

    ZREditorRequestDelegate* requestDelegate = nullptr;
    ZREditorDelegate* delegate = nullptr;
    QFont mTextFont;
    QColor mTextColor{Qt::red};
    bool _isDragging = false;
    ZRBasicCustomView* m_current = nullptr; // press, drag and release go to it
    ZRBasicCustomView* m_top = nullptr;     // the annotation in hand as the canvas has it
    ZRPoint m_lastPoint;                    // of the press or the drag
    std::vector<ZRTextEditor*> m_editors;   // borrowed
    bool m_isInField = false;               // the drag selects in the text that is edited
    ZRRect m_frame;
    std::shared_ptr<const Frame> m_display;
    GraffitCanvas m_canvas;
    std::vector<FocusMarks> m_marks; // of all selected annotations but the current one
    FocusMarks m_currentMarks;
};
