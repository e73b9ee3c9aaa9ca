#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/TestWindow.h"

#include <QColor>

namespace {

constexpr QRgb kLine = qRgb(50, 166, 255);

// What the user sees while choosing; device pixels.
class Chrome : public ProgramTest {
protected:
    QRgb shown(QPoint pixel) const { return server().pixels({pixel, QSize(1, 1)}).pixel(0, 0); }
    // The cross runs through the pixel's top left corner, over the whole display.
    bool isCrossed(QPoint pixel) const
    {
        const QSize screen = server().size();
        const QPoint on[] = {{2, pixel.y()}, {2, pixel.y() - 1}, {screen.width() - 3, pixel.y()},
            {pixel.x(), 2}, {pixel.x() - 1, 2}, {pixel.x(), screen.height() - 3}};
        return std::all_of(std::begin(on), std::end(on), [this](QPoint p) { return isLine(shown(p)); });
    }
    static bool isLine(QRgb colour) { return (colour & RGB_MASK) == (kLine & RGB_MASK); }
};

}

TEST_F(Chrome, TheCrossShowsWithTheOverlayFollowsThePointerAndLeavesNoTrace)
{
    for (const char* scale : {"1", "1.25", "1.5", "2"}) {
        SCOPED_TRACE(scale);
        ASSERT_TRUE(startResidentAt(scale));
        ASSERT_TRUE(openOverlayOnFreeGround());
        EXPECT_TRUE(waitUntil([&] { return isCrossed(kFreeGround); }));
        const QImage first = m_desktop.settledScreen();
        for (const QPoint place : {QPoint(1100, 700), QPoint(1279, 799), QPoint(900, 790)}) {
            input().moveTo(place);
            EXPECT_TRUE(waitUntil([&] { return isLine(shown({2, place.y()})); })) << place.x();
        }
        input().moveTo(kFreeGround);
        EXPECT_TRUE(waitUntil([&] { return isCrossed(kFreeGround); }));
        EXPECT_TRUE(samePixels(m_desktop.settledScreen(), first));
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(Chrome, TheMagnifierShowsTheFrozenPixelsAndMarksTheOneUnderThePointer)
{
    struct Case {
        const char* scale;
        QPoint toMiddle; // from the pointer's pixel to the first pixel of the marked cell
    };
    // The magnifier's corner, its margin around the lens, and half the lens but half a cell.
    const Case cases[] = {{"1", {10 + 7 + 75, 15 + 7 + 75}}, {"1.5", {15 + 10 + 115, 22 + 10 + 115}},
        {"2", {20 + 12 + 155, 30 + 12 + 155}}};
    for (const Case& c : cases) {
        ASSERT_TRUE(startResidentAt(c.scale));
        ASSERT_TRUE(openOverlayOnFreeGround());
        for (const QPoint place : {QPoint(740, 200), QPoint(701, 303), QPoint(77, 311)}) {
            SCOPED_TRACE(testing::Message() << place.x() << ',' << place.y() << " at scale " << c.scale);
            input().moveTo(place);
            ASSERT_TRUE(waitUntil([&] { return isLine(shown({2, place.y()})); }));
            const QImage screen = m_desktop.settledScreen();
            const QPoint cell = place + c.toMiddle;
            for (const QPoint neighbour : {QPoint(0, 0), QPoint(-3, -4), QPoint(6, 5), QPoint(-7, 3)})
                EXPECT_EQ(screen.pixelColor(cell + neighbour * 5 + QPoint(1, 1)),
                    QColor(m_before.pixel(place + neighbour)))
                    << neighbour.x() << ',' << neighbour.y();
            EXPECT_EQ(screen.pixelColor(cell - QPoint(1, 1)), QColor(Qt::white)) << "the mark";
        }
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_F(Chrome, ArrowKeysMoveAndStretchAFixedRegionByDevicePixels)
{
    ASSERT_TRUE(startResidentAt("1.25"));
    ASSERT_TRUE(openOverlayOnFreeGround());
    input().drag({701, 603}, {751, 653});
    input().type({Key::Right, Key::Right, Key::Down, Key::Left, Key::Up, Key::Up, Key::Up});
    for (const Key key : {Key::Right, Key::Right, Key::Right, Key::Down, Key::Up, Key::Up})
        input().chord({Key::Shift, key});
    EXPECT_TRUE(saves({702, 601, 53, 49}));
}

TEST_F(Chrome, TheWheelWalksThroughTheWindowsUnderThePointer)
{
    TestWindow outer(m_desktop.displayName(), {{700, 400, 400, 350}});
    TestWindow inner(m_desktop.displayName(), {{800, 500, 150, 120}, 0, true});
    struct Case {
        const char* what;
        std::vector<Button> wheel;
        QPoint move; // between the wheel and the click
        QRect expected;
    };
    const Case cases[] = {
        {"plain", {}, {}, inner.outline()},
        {"up", {Button::WheelUp}, {}, outer.outline()},
        {"up, with a trembling hand", {Button::WheelUp}, {2, -1}, outer.outline()},
        {"up and down", {Button::WheelUp, Button::WheelUp, Button::WheelDown}, {}, inner.outline()},
        {"up and away", {Button::WheelUp}, {30, 20}, inner.outline()},
    };
    ASSERT_TRUE(startResidentAt("1"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(openOverlayOnFreeGround());
        input().moveTo(inner.outline().center());
        for (const Button button : c.wheel)
            input().click(button);
        input().clickAt(inner.outline().center() + c.move);
        EXPECT_TRUE(saves(c.expected));
    }
}
