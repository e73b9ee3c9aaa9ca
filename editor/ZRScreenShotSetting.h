#pragma once

#include <QColor>
#include <QFont>

class ZRScreenShotToolbarItem;
class ZRBasicCustomView;
class QTextEdit;

// The style of the running capture, one set for the process. Every end of a capture and every new selection
// clears it. Main thread only; the objects are borrowed and never outlive the capture.
class ZRScreenShotSetting {
public:
    ZRScreenShotSetting() = delete;

    // No tool, no focus, width 3, red, size 14.
    static void clear();

    static void setSelectedScreenshotToolbarItem(ZRScreenShotToolbarItem* item);
    static ZRScreenShotToolbarItem* selectedScreenshotToolbarItem(); // null: no tool
    static void setSelectedLineWidth(qint32 points);
    static qint32 selectedLineWidth();
    static void setSelectedColor(const QColor& color);
    // Red until a colour is set.
    static QColor selectedColor();
    static void setSelectedFontSize(qint32 points);
    // The system font in the selected size.
    static QFont selectedFont();
    static void setFocusOnGraffitView(ZRBasicCustomView* view);
    static ZRBasicCustomView* focusOnGraffitView();
    static void setFocusOnTextEditor(QTextEdit* editor);
    static QTextEdit* focusOnTextEditor();
};
