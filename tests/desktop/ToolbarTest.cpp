#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/Toolbars.h"

#include <functional>

namespace {

constexpr QRect kRegion{101, 52, 1000, 500}; // leaves room for toolbars and ribbon below
constexpr int kArrow = 3, kPencil = 5, kText = 7, kBlur = 8, kEraser = 9;

// Toolbars and ribbons with a real mouse and real keys, at scale 1 with a window manager, at scale 2 without.
// Device pixels of the screen.
class Toolbar : public EachDesktopTest {
protected:
    void SetUp() override
    {
        EachDesktopTest::SetUp();
        m_program.setEnvironment(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale()));
        ASSERT_TRUE(m_program.startResident());
        ASSERT_TRUE(openOverlay());
    }

    static int scale() { return GetParam() ? 1 : 2; }
    // The region from now on.
    void choose(QRect region)
    {
        m_desktop.input().drag(region.topLeft(), region.bottomRight() + QPoint(1, 1));
        m_region = region;
    }
    Toolbars toolbars() const { return {m_before.rect(), double(scale()), m_region}; }
    void click(QPoint point)
    {
        m_desktop.input().moveTo(point);
        m_desktop.input().click(Button::Left);
    }
    void drag(QPoint from, QPoint to) { m_desktop.input().drag(from, to); }
    QImage screen() const { return m_desktop.settledScreen(); }
    QImage screenIn(QRect part) const { return screen().copy(part); }
    // The region without its border and handles.
    QRect inside() const { return m_region.adjusted(12, 12, -12, -12); }
    bool isUntouched() const { return screenIn(inside()) == m_before.copy(inside()); }
    // Whether a toolbar is where it is to be: its panel's colour between border and items.
    bool isPanel(QRect toolbar) const
    {
        const QRgb panel = qRgb(240, 248, 255);
        const QImage shown = screen();
        return shown.pixel(toolbar.center().x(), toolbar.top() + 2 * scale()) == panel &&
               shown.pixel(toolbar.left() + 2 * scale(), toolbar.center().y()) == panel;
    }
    bool areToolbarsShown() const { return isPanel(toolbars().drawing()) && isPanel(toolbars().output()); }
    // The picture that a click on an item leaves; null when there is none.
    QImage pictureAfterClick(QPoint item)
    {
        const qsizetype before = m_program.savedPictures().size();
        click(item);
        if (!waitForRest() || m_program.savedPictures().size() != before + 1)
            return {};
        return QImage(m_program.savedPictures().last());
    }

    QRect m_region;
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Toolbar);

TEST_P(Toolbar, ASessionOfAllToolsEndsInTheFile)
{
    choose(kRegion);
    ASSERT_TRUE(areToolbarsShown());
    const Toolbars bars = toolbars();
    QImage before = screenIn(inside());
    for (int tool = 1; tool <= 6; ++tool) {
        for (int width = 0; width < 3; ++width) {
            SCOPED_TRACE(testing::Message() << "tool " << tool << ", width " << width);
            if (width == 0)
                click(bars.tool(tool));
            click(bars.lineWidth(tool, width));
            click(bars.color(tool, 4 * tool + width));
            const QPoint from(130 + 150 * (tool - 1), 80 + 140 * width);
            drag(from, from + QPoint(100, 60));
            const QImage after = screenIn(inside());
            EXPECT_NE(after, before);
            before = after;
        }
    }
    click(bars.undo());
    EXPECT_NE(screenIn(inside()), before);
    click(bars.redo());
    EXPECT_EQ(screenIn(inside()), before);
    click(bars.tool(kBlur));
    click(bars.mosaicSwitch(kBlur));
    click(bars.lineWidth(kBlur, 2));
    drag({130, 480}, {600, 530});
    EXPECT_NE(screenIn(inside()), before);
    click(bars.tool(kEraser));
    click({400, 500});
    EXPECT_EQ(screenIn(inside()), before);
    const QImage picture = pictureAfterClick(bars.ok());
    ASSERT_EQ(picture.size(), kRegion.size());
    EXPECT_TRUE(samePixels(picture.copy(inside().translated(-kRegion.topLeft())), before));
}

TEST_P(Toolbar, TextIsTypedInTheChosenSizeAndColour)
{
    choose(kRegion);
    click(toolbars().tool(kText));
    int small = 0;
    for (const int row : {6, 8}) { // 18 and 36 points
        click(toolbars().fontSize(kText));
        click(toolbars().fontSizeRow(kText, row));
        click(toolbars().color(kText, 18));
        const QPoint place(300, row == 6 ? 150 : 300);
        click(place);
        for (const Key key : {Key::A, Key::S, Key::D})
            m_desktop.input().chord({key});
        click(place + QPoint(0, -60)); // the edit ends
        const QImage shown = screen();
        int top = shown.height(), bottom = 0;
        for (int y = place.y() - 50; y < place.y() + 50; ++y)
            for (int x = place.x() - 10; x < place.x() + 200; ++x)
                if (shown.pixel(x, y) == qRgb(255, 0, 0)) {
                    top = qMin(top, y);
                    bottom = qMax(bottom, y);
                }
        ASSERT_GT(bottom, top);
        EXPECT_GT(bottom - top, small * 3 / 2);
        small = bottom - top;
    }
}

TEST_P(Toolbar, EveryEndOfTheCaptureHasItsItemOrKey)
{
    struct Case {
        const char* what;
        std::function<void(const Toolbars&)> end;
        bool leavesAFile, leavesACopy;
    };
    Input& input = m_desktop.input();
    const Case cases[] = {
        {"cancel", [this](const Toolbars& bars) { click(bars.cancel()); }, false, false},
        {"copy", [this](const Toolbars& bars) { click(bars.copy()); }, false, true},
        {"save", [this](const Toolbars& bars) { click(bars.save()); }, true, false},
        {"Return", [&input](const Toolbars&) { input.chord({Key::Return}); }, true, false},
        {"Escape with a ribbon",
            [this](const Toolbars& bars) {
                click(bars.tool(kArrow));
                m_desktop.input().chord({Key::Escape});
            },
            false, false},
        {"the right button on a toolbar",
            [&input](const Toolbars& bars) {
                input.moveTo(bars.tool(kArrow));
                input.click(Button::Right);
            },
            false, false},
        {"the right button on a ribbon",
            [this](const Toolbars& bars) {
                click(bars.tool(kArrow));
                m_desktop.input().moveTo(bars.color(kArrow, 5));
                m_desktop.input().click(Button::Right);
            },
            false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        choose(kRegion);
        const qsizetype files = m_program.savedPictures().size();
        c.end(toolbars());
        ASSERT_TRUE(waitForRest());
        EXPECT_EQ(m_program.savedPictures().size(), files + (c.leavesAFile ? 1 : 0));
        if (c.leavesACopy) {
            EXPECT_TRUE(samePixels(QImage::fromData(clipboard("image/png")), m_before.copy(kRegion)));
        }
        EXPECT_TRUE(samePixels(screen(), m_before));
        ASSERT_TRUE(openOverlay());
    }
}

TEST_P(Toolbar, NothingOnAToolbarReachesTheRegionBelow)
{
    choose(kRegion);
    m_desktop.input().chord({Key::Control, Key::A});
    m_region = m_before.rect();
    ASSERT_TRUE(areToolbarsShown());
    const QImage whole = screen();
    const Toolbars bars = toolbars();
    const QPoint panel = bars.drawing().topLeft() + QPoint(bars.drawing().width() / 2, 2 * scale());
    drag(panel, panel + QPoint(-60, -200)); // neither moves the region nor leaves the panel
    EXPECT_TRUE(samePixels(screen(), whole));
    drag(bars.tool(kArrow), {300, 200}); // released off the item
    EXPECT_TRUE(samePixels(screenIn({200, 100, 300, 300}), whole.copy(200, 100, 300, 300)));
    m_desktop.input().chord({Key::Digit1});
    drag({200, 200},
        bars.tool(kPencil)); // a drag of the region goes on over a toolbar, whose item does nothing
    m_desktop.input().chord({Key::Digit1});
    m_desktop.input().moveTo({300, 150});
    const QImage drawn = screen();
    const QRgb middle = drawn.pixel(200, (200 + bars.tool(kPencil).y()) / 2);
    EXPECT_EQ(middle, qRgb(255, 0, 0));
    EXPECT_TRUE(areToolbarsShown());
}

TEST_P(Toolbar, ASecondClickDisarmsTheTool)
{
    choose(kRegion);
    const QImage fixed = screen();
    for (int i = 0; i < 100; ++i)
        click(toolbars().tool(kArrow));
    m_desktop.input().moveTo({300, 300});
    EXPECT_TRUE(samePixels(screen(), fixed));
    drag({500, 300}, {520, 310}); // moves the region again
    m_region.translate(20, 10);
    EXPECT_TRUE(areToolbarsShown());
    EXPECT_TRUE(isUntouched());
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
            drag(from, to);
            m_region = spannedBy(from, to);
            EXPECT_TRUE(areToolbarsShown());
            EXPECT_TRUE(
                screenRect.contains(toolbars().drawing()) && screenRect.contains(toolbars().output()));
            m_desktop.input().chord({Key::Escape});
            ASSERT_TRUE(waitForRest());
            ASSERT_TRUE(openOverlay());
        }
    }
}

TEST_P(Toolbar, DisplayThatGoesTakesAnOpenRibbonAlong)
{
    choose(kRegion);
    click(toolbars().tool(kText));
    click(toolbars().fontSize(kText));
    ASSERT_TRUE(m_desktop.setDisplay(QStringLiteral("OTHER"), {0, 0, 800, 600}));
    EXPECT_TRUE(m_program.waitForNoOverlay());
    EXPECT_TRUE(waitForRest());
    EXPECT_TRUE(m_program.answers());
}
