#include "tests/desktop/AnnotatingTest.h"
#include "tests/desktop/TestWindow.h"

namespace {

constexpr QPoint kPlace(400, 300);
constexpr QPoint kNowhere(1060, 525); // on the region, where no test writes
constexpr int kDoubleClickMs = 400;   // at most, between two clicks

// Texts with a real mouse and real keys.
class Text : public AnnotatingTest {
protected:
    void type(std::initializer_list<Key> keys)
    {
        for (const Key key : keys)
            input().chord({key});
    }
    // Writes at kPlace and ends the edit.
    void write(std::initializer_list<Key> keys)
    {
        arm(kText);
        clickAt(kPlace);
        type(keys);
        type({Key::Return});
    }
    void clickApart(QPoint place)
    {
        QThread::msleep(kDoubleClickMs + 100);
        clickAt(place);
    }
    void doubleClick(QPoint place)
    {
        clickApart(place);
        input().click(Button::Left);
    }
    // Whether the copy key gives other programs what is selected.
    bool copies(const char* selected)
    {
        input().chord({Key::Control, Key::C});
        return waitUntil([&] { return clipboard("UTF8_STRING") == selected; });
    }
    bool isOverlayUp() const { return m_program.overlay() != XCB_NONE; }
    QRect whereRed(const QImage& image) const
    {
        QRect rect;
        for (int y = kRegion.top() + 12; y < kRegion.bottom() - 12; ++y)
            for (int x = kRegion.left() + 12; x < kRegion.right() - 12; ++x)
                if (image.pixel(x, y) == qRgb(255, 0, 0))
                    rect |= QRect(x, y, 1, 1);
        return rect;
    }
};

}

LUMORA_ON_EACH_DESKTOP(Text);

TEST_P(Text, FileHasTheTextOfTheOverlayWithoutRingAndCaret)
{
    arm(kText);
    clickAt(kPlace);
    type({Key::Shift, Key::S, Key::A, Key::D, Key::Digit1, Key::C, Key::Q});
    const QImage edited = screen();
    type({Key::Return});
    const QImage overlay = screen();
    const QRect text = changed(overlay, m_empty);
    EXPECT_NE(overlay, edited);
    EXPECT_TRUE(changed(edited, m_empty).contains(text));
    EXPECT_GT(text.width(), 30 * scale());
    EXPECT_NEAR(text.left(), kPlace.x() + 2 * scale(), 3 * scale());
    EXPECT_NEAR(text.center().y(), kPlace.y(), 4 * scale());
    const QImage file = saved();
    EXPECT_TRUE(samePixels(file.copy(inside()), overlay.copy(inside())));
    EXPECT_EQ(changed(file, m_before), text);
}

TEST_P(Text, ListOfAnInputMethodStaysAboveTheOverlay)
{
    constexpr QRect list(700, 400, 60, 40);
    arm(kText);
    clickAt(kPlace);
    type({Key::A});
    {
        const TestWindow window(m_desktop.displayName(), {list, 0, true});
        QThread::msleep(500);
        EXPECT_FALSE(samePixels(screen().copy(list), m_empty.copy(list)));
    }
    type({Key::Return});
    const TestWindow window(m_desktop.displayName(), {list, 0, true});
    EXPECT_TRUE(waitUntil([&] { return m_desktop.screen().copy(list) == m_empty.copy(list); }));
}

TEST_P(Text, EditGoesOnBesideTheRibbonAndEndsWithTheOutput)
{
    arm(kText);
    clickAt(kPlace);
    type({Key::A});
    setColor(kGreen);
    type({Key::S, Key::D});
    const QImage edited = screen();
    EXPECT_TRUE(whereRed(edited).isEmpty());
    clickAt(toolbars().save());
    ASSERT_TRUE(waitForRest());
    ASSERT_EQ(m_program.savedPictures().size(), 1);
    const QImage picture(m_program.savedPictures().first());
    ASSERT_EQ(picture.size(), kRegion.size());
    const QRect text = changed(picture, m_before.copy(kRegion)).translated(kRegion.topLeft());
    EXPECT_GT(text.width(), 15 * scale());
    EXPECT_TRUE(changed(edited, m_empty).adjusted(7, 4, -7, -4).contains(text)); // inside the ring
}

TEST_P(Text, KeysOfTheOverlayRestWhileATextIsEdited)
{
    arm(kText);
    clickAt(kPlace);
    type({Key::C, Key::Digit2, Key::S, Key::Up, Key::Left, Key::Right, Key::Tab, Key::A});
    const QRect typed = whereRed(screen());
    EXPECT_FALSE(typed.isEmpty());
    input().chord({Key::Control, Key::S});
    input().chord({Key::Control, Key::A});
    EXPECT_TRUE(copies("c2sa"));
    EXPECT_TRUE(isOverlayUp());
    input().chord({Key::BackSpace});
    EXPECT_TRUE(waitUntil([this] { return whereRed(screen()).width() <= 2 * scale(); })); // the caret
    input().chord({Key::Control, Key::Z});
    type({Key::Right});
    EXPECT_GE(whereRed(screen()).width(), typed.width() - 2 * scale());
    input().press(Key::Escape); // held: it ends the edit, and nothing else
    QThread::msleep(1500);
    input().release(Key::Escape);
    EXPECT_TRUE(isOverlayUp());
    EXPECT_NE(screen(), m_empty);
    EXPECT_TRUE(m_program.savedPictures().isEmpty());
    type({Key::Escape});
    EXPECT_TRUE(m_program.waitForNoOverlay());
}

TEST_P(Text, BoxIsDraggedAndItsTextEditedAgainAndEmptied)
{
    write({Key::S, Key::A, Key::D});
    const QRect first = ink();
    const QPoint by(120, 61);
    QThread::msleep(kDoubleClickMs + 100);
    drag(kPlace, kPlace + by);
    clickAt(kNowhere);
    EXPECT_EQ(ink(), first.translated(by));
    doubleClick(kPlace + by); // selects the word, which gives way
    type({Key::D, Key::A, Key::S, Key::D, Key::A, Key::S, Key::Return});
    const QRect longer = ink();
    EXPECT_NEAR(longer.left(), first.left() + by.x(), 2 * scale());
    EXPECT_GT(longer.width(), first.width() * 3 / 2);
    doubleClick(kPlace + by);
    input().chord({Key::Control, Key::A});
    type({Key::BackSpace});
    clickApart(kNowhere);
    EXPECT_TRUE(samePixels(screen(), m_empty));
    undo(); // there is nothing left to take back
    EXPECT_TRUE(samePixels(screen(), m_empty));
    clickApart(kNowhere); // the next press writes again
    EXPECT_NE(screen(), m_empty);
}

TEST_P(Text, MouseSelectsInTheTextThatIsEdited)
{
    arm(kText);
    clickAt(kPlace);
    type({Key::A, Key::S, Key::D, Key::A, Key::S, Key::D});
    const QRect box = ink();
    QThread::msleep(kDoubleClickMs + 100);
    drag(kPlace + QPoint(3 * scale(), 0), kPlace + QPoint(95 * scale(), 0));
    EXPECT_EQ(ink(), box); // it has not moved
    EXPECT_TRUE(copies("asdasd"));
    clickApart(kPlace + QPoint(3 * scale(), 0));
    type({Key::Q, Key::Return});
    doubleClick(kPlace + QPoint(3 * scale(), 0));
    EXPECT_TRUE(copies("qasdasd"));
}

TEST_P(Text, SelectedTextIsRestyledErasedAndUndone)
{
    write({Key::S, Key::A, Key::D});
    const QImage red = screen();
    clickApart(kPlace);
    setColor(kGreen);
    clickAt(kNowhere);
    const QImage green = screen();
    EXPECT_TRUE(whereRed(green).isEmpty());
    EXPECT_EQ(changed(green, m_empty), changed(red, m_empty));
    clickApart(kPlace);
    type({Key::BackSpace}); // takes the box
    EXPECT_TRUE(samePixels(screen(), m_empty));
    undo();
    EXPECT_TRUE(samePixels(screen(), green));
    arm(kEraser);
    clickApart(kPlace);
    EXPECT_TRUE(samePixels(screen(), m_empty));
    undo();
    EXPECT_TRUE(samePixels(screen(), green));
    undo();
    EXPECT_TRUE(samePixels(screen(), m_empty));
    redo();
    EXPECT_TRUE(samePixels(screen(), green));
}
