#include "tests/desktop/AnnotatingTest.h"

namespace {

// Toolbars and ribbons with a real mouse and real keys. Device pixels of the screen.
class Toolbar : public AnnotatingTest {
protected:
    // The region from now on.
    void choose(QPoint from, QPoint to)
    {
        drag(from, to);
        m_region = spannedBy(from, to);
    }
    Toolbars toolbars() const { return {m_before.rect(), double(scale()), m_region}; }
    QImage whole() const { return m_desktop.settledScreen(); }
    QImage shownInside() const { return whole().copy(inside()); }
    // Whether a toolbar is where it is to be: its panel's colour between border and items.
    bool isPanel(QRect toolbar) const
    {
        const QRgb panel = qRgb(240, 248, 255);
        const QImage shown = whole();
        return shown.pixel(toolbar.center().x(), toolbar.top() + 2 * scale()) == panel &&
               shown.pixel(toolbar.left() + 2 * scale(), toolbar.center().y()) == panel;
    }
    bool areToolbarsShown() const { return isPanel(toolbars().drawing()) && isPanel(toolbars().output()); }
    QRect m_region = kRegion;
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Toolbar);

TEST_P(Toolbar, ASessionOfAllToolsEndsInTheFile)
{
    ASSERT_TRUE(areToolbarsShown());
    const Toolbars bars = toolbars();
    QImage before = shownInside();
    for (int tool = 1; tool <= 6; ++tool) {
        for (int width = 0; width < 3; ++width) {
            SCOPED_TRACE(testing::Message() << "tool " << tool << ", width " << width);
            if (width == 0)
                clickAt(bars.tool(tool));
            clickAt(bars.lineWidth(tool, width));
            clickAt(bars.color(tool, 4 * tool + width));
            const QPoint from(130 + 150 * (tool - 1), 80 + 140 * width);
            drag(from, from + QPoint(100, 60));
            EXPECT_TRUE(waitUntil([&] { return shownInside() != before; }));
            before = shownInside();
        }
    }
    clickAt(bars.undo());
    EXPECT_NE(shownInside(), before);
    clickAt(bars.redo());
    EXPECT_EQ(shownInside(), before);
    clickAt(bars.tool(kBlur));
    clickAt(bars.mosaicSwitch(kBlur));
    clickAt(bars.lineWidth(kBlur, 2));
    drag({130, 480}, {600, 530});
    EXPECT_NE(shownInside(), before);
    clickAt(bars.tool(kEraser));
    clickAt({400, 500});
    EXPECT_EQ(shownInside(), before);
    clickAt(bars.ok());
    ASSERT_TRUE(waitForRest());
    const QImage picture(m_program.savedPictures().value(0));
    ASSERT_EQ(picture.size(), kRegion.size());
    EXPECT_TRUE(samePixels(picture.copy(inside().translated(-kRegion.topLeft())), before));
}

TEST_P(Toolbar, TextIsTypedInTheChosenSizeAndColour)
{
    clickAt(toolbars().tool(kText));
    int small = 0;
    for (const int row : {6, 8}) { // 18 and 36 points
        clickAt(toolbars().fontSize(kText));
        clickAt(toolbars().fontSizeRow(kText, row));
        clickAt(toolbars().color(kText, 18));
        const QPoint place(300, row == 6 ? 150 : 300);
        clickAt(place);
        input().type({Key::A, Key::S, Key::D});
        clickAt(place + QPoint(0, -60)); // the edit ends
        const int height = whereRed(whole(), {place - QPoint(10, 50), QSize(210, 100)}).height();
        ASSERT_GT(height, 1);
        EXPECT_GT(height, small * 3 / 2);
        small = height;
    }
}

TEST_P(Toolbar, EveryEndOfTheCaptureHasItsItemOrKey)
{
    const Toolbars bars = toolbars();
    const struct {
        const char* what;
        bool hasRibbon;
        QPoint place;
        Button button;
        bool leavesAFile, leavesACopy;
        std::vector<Key> keys = {}; // instead of the button
    } cases[] = {
        {"cancel", false, bars.cancel(), Button::Left, false, false},
        {"copy", false, bars.copy(), Button::Left, false, true},
        {"save", false, bars.save(), Button::Left, true, false},
        {"the right button on a toolbar", false, bars.tool(kArrow), Button::Right, false, false},
        {"the right button on a ribbon", true, bars.color(kArrow, 5), Button::Right, false, false},
        {"Return", false, {}, Button::Left, true, false, {Key::Return}},
        {"Escape with a ribbon", true, {}, Button::Left, false, false, {Key::Escape}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const qsizetype files = m_program.savedPictures().size();
        if (c.hasRibbon)
            clickAt(bars.tool(kArrow));
        input().chord(c.keys);
        if (c.keys.empty()) {
            input().moveTo(c.place);
            input().click(c.button);
        }
        ASSERT_TRUE(waitForRest());
        EXPECT_EQ(m_program.savedPictures().size(), files + (c.leavesAFile ? 1 : 0));
        if (c.leavesACopy) {
            EXPECT_TRUE(samePixels(QImage::fromData(clipboard("image/png")), m_before.copy(kRegion)));
        }
        EXPECT_TRUE(samePixels(whole(), m_before));
        ASSERT_TRUE(openOverlay());
        choose(kRegion.topLeft(), kRegion.bottomRight() + QPoint(1, 1));
    }
}

TEST_P(Toolbar, NothingOnAToolbarReachesTheRegionBelow)
{
    input().chord({Key::Control, Key::A});
    m_region = m_before.rect();
    ASSERT_TRUE(areToolbarsShown());
    const QImage fixed = whole();
    const Toolbars bars = toolbars();
    const QPoint panel = bars.drawing().topLeft() + QPoint(bars.drawing().width() / 2, 2 * scale());
    drag(panel, panel + QPoint(-60, -200)); // neither moves the region nor leaves the panel
    EXPECT_TRUE(samePixels(whole(), fixed));
    drag(bars.tool(kArrow), {300, 200}); // released off the item
    EXPECT_TRUE(samePixels(whole().copy(200, 100, 300, 300), fixed.copy(200, 100, 300, 300)));
    input().chord({Key::Digit1});
    // A drag of the region goes on over a toolbar, whose item does nothing.
    drag({200, 200}, bars.tool(kPencil));
    input().chord({Key::Digit1});
    input().moveTo({300, 150});
    const QImage drawn = whole();
    const QRgb middle = drawn.pixel(200, (200 + bars.tool(kPencil).y()) / 2);
    EXPECT_EQ(middle, qRgb(255, 0, 0));
    EXPECT_TRUE(areToolbarsShown());
}

TEST_P(Toolbar, ASecondClickDisarmsTheTool)
{
    const QImage fixed = whole();
    for (int i = 0; i < 100; ++i)
        clickAt(toolbars().tool(kArrow));
    input().moveTo({300, 300});
    EXPECT_TRUE(samePixels(whole(), fixed));
    drag({500, 300}, {520, 310}); // moves the region again
    m_region.translate(20, 10);
    EXPECT_TRUE(areToolbarsShown());
    const QRect moved = m_region.adjusted(12, 12, -12, -12);
    EXPECT_TRUE(samePixels(whole().copy(moved), m_before.copy(moved)));
}

TEST_P(Toolbar, StandBesideARegionInEveryCorner)
{
    const QRect screenRect = m_before.rect();
    for (const QPoint corner : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)}) {
        for (const QSize size : {QSize(90, 60), QSize(500, 300)}) {
            SCOPED_TRACE(testing::Message() << corner.x() << ',' << corner.y() << ' ' << size.width());
            const QPoint from(corner.x() * (screenRect.width() - 1), corner.y() * (screenRect.height() - 1));
            const QPoint to = from + QPoint(corner.x() ? -size.width() : size.width(),
                                         corner.y() ? -size.height() : size.height());
            ASSERT_TRUE(cancelCapture() && openOverlay());
            choose(from, to);
            EXPECT_TRUE(areToolbarsShown());
            EXPECT_TRUE(
                screenRect.contains(toolbars().drawing()) && screenRect.contains(toolbars().output()));
        }
    }
}

TEST_P(Toolbar, DisplayThatGoesTakesAnOpenRibbonAlong)
{
    clickAt(toolbars().tool(kText));
    clickAt(toolbars().fontSize(kText));
    ASSERT_TRUE(m_desktop.setDisplay("OTHER", {0, 0, 800, 600}));
    EXPECT_TRUE(m_program.waitForNoOverlay());
    EXPECT_TRUE(waitForRest());
    EXPECT_TRUE(m_program.answers());
}

TEST_P(Toolbar, ADisplaySmallerThanTheToolbarsIsCapturedAllTheSame)
{
    ASSERT_TRUE(cancelCapture());
    constexpr QRect display(0, 0, 300, 120);
    input().moveTo(display.center());
    ASSERT_TRUE(m_desktop.setDisplay("SMALL", display));
    m_before = whole();
    input().chord({Key::Super, Key::Digit1});
    ASSERT_TRUE(waitUntil([this] { return server().isKeyboardTaken(); }));
    const QPoint from(40, 30), to(220, 90);
    choose(from, to);
    input().type({Key::Digit2, Key::Digit1}); // ribbons that do not fit either
    const QImage expected = m_before.copy(spannedBy(from, to));
    EXPECT_TRUE(samePixels(pictureAfter({Key::Return}), expected));
}
