#pragma once

#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/Toolbars.h"

// Tools by their digits, and what their ribbons offer by its place in them.
enum Tool { kNone, kRectangle, kEllipse, kArrow, kLine, kPencil, kHighlighter, kText, kBlur, kEraser };
enum RibbonWidth { kThin, kMedium, kThick };
enum RibbonColor { kGreen = 3, kRed = 18 };

// A fixed region that is annotated with a real mouse and real keys, at scale 1 with a window manager, at
// scale 2 without. Device pixels of the screen.
class AnnotatingTest : public EachDesktopTest {
protected:
    void SetUp() override;

    static constexpr QRect kRegion{101, 52, 1000, 500}; // leaves room for toolbars and ribbon below
    static int scale() { return GetParam() ? 1 : 2; }
    // The region without its border and handles.
    static QRect inside() { return kRegion.adjusted(12, 12, -12, -12); }
    Toolbars toolbars() const { return {m_before.rect(), double(scale()), kRegion}; }

    // Clicks the tool's item, unless it is armed; kNone disarms the armed one.
    void arm(int tool);
    // In the ribbon of the armed tool.
    void setWidth(int width) { clickAt(toolbars().lineWidth(m_tool, width)); }
    void setColor(int color) { clickAt(toolbars().color(m_tool, color)); }
    void style(int width, int color);
    void drag(QPoint from, QPoint to) { input().drag(from, to); }
    void clickAt(QPoint point) { input().clickAt(point); }
    void undo() { input().chord({Key::Control, Key::Z}); }
    void redo() { input().chord({Key::Control, Key::Shift, Key::Z}); }

    // The screen as it was, with the inside of the region as it is.
    QImage screen() const;
    // What the annotations cover on the screen.
    QRect ink() const { return changed(screen(), m_before); }
    // The saved picture, put back where it was on the screen; null when none was saved.
    QImage saved();

    // The smallest rectangle around an area's pixels of the ribbon's red.
    static QRect whereRed(const QImage& image, QRect area);
    static void put(QImage& picture, const QImage& from, QRect area);

private:
    int m_tool = kNone;
};
