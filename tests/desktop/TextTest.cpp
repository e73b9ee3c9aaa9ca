#include "tests/desktop/AnnotatingTest.h"
#include "tests/desktop/TestWindow.h"

namespace {

constexpr QPoint kPlace(400, 300);
constexpr QPoint kNowhere(1060, 525); // on the region, where no test writes
constexpr int kDoubleClickMs = 400;   // at most, between two clicks

// Texts with a real mouse and real keys.
class Text : public AnnotatingTest {
protected:
    // Writes at kPlace; the edit goes on.
    void write(const std::vector<Key>& keys)
    {
        arm(kText);
        clickAt(kPlace);
        input().type(keys);
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
};

}

LUMORA_ON_EACH_DESKTOP(Text);

TEST_P(Text, FileHasTheTextOfTheOverlayWithoutRingAndCaret)
{
    write({Key::Shift, Key::S, Key::A, Key::D, Key::Digit1, Key::C, Key::Q});
    const QImage edited = screen();
    input().type({Key::Return});
    const QImage overlay = screen();
    const QRect text = changed(overlay, m_before);
    EXPECT_NE(overlay, edited);
    EXPECT_TRUE(changed(edited, m_before).contains(text));
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
    write({Key::A});
    {
        const TestWindow window(m_desktop.displayName(), {list, 0, true});
        QThread::msleep(500);
        EXPECT_FALSE(samePixels(screen().copy(list), m_before.copy(list)));
    }
    input().type({Key::Return});
    const TestWindow window(m_desktop.displayName(), {list, 0, true});
    EXPECT_TRUE(waitUntil([&] { return m_desktop.screen().copy(list) == m_before.copy(list); }));
}

TEST_P(Text, EditGoesOnBesideTheRibbonAndEndsWithTheOutput)
{
    write({Key::A});
    setColor(kGreen);
    input().type({Key::S, Key::D});
    const QImage edited = screen();
    EXPECT_TRUE(whereRed(edited, inside()).isEmpty());
    clickAt(toolbars().save());
    ASSERT_TRUE(waitForRest());
    ASSERT_EQ(m_program.savedPictures().size(), 1);
    const QImage picture(m_program.savedPictures().first());
    ASSERT_EQ(picture.size(), kRegion.size());
    const QRect text = changed(picture, m_before.copy(kRegion)).translated(kRegion.topLeft());
    EXPECT_GT(text.width(), 15 * scale());
    EXPECT_TRUE(changed(edited, m_before).adjusted(7, 4, -7, -4).contains(text)); // inside the ring
}

TEST_P(Text, KeysOfTheOverlayRestWhileATextIsEdited)
{
    write({Key::C, Key::Digit2, Key::S, Key::Up, Key::Left, Key::Right, Key::Tab, Key::A});
    const QRect typed = whereRed(screen(), inside());
    EXPECT_FALSE(typed.isEmpty());
    input().chord({Key::Control, Key::S});
    input().chord({Key::Control, Key::A});
    EXPECT_TRUE(copies("c2sa"));
    EXPECT_TRUE(isOverlayUp());
    input().chord({Key::BackSpace});
    EXPECT_TRUE(
        waitUntil([this] { return whereRed(screen(), inside()).width() <= 2 * scale(); })); // the caret
    input().chord({Key::Control, Key::Z});
    input().type({Key::Right});
    EXPECT_GE(whereRed(screen(), inside()).width(), typed.width() - 2 * scale());
    input().press(Key::Escape); // held: it ends the edit, and nothing else
    QThread::msleep(1500);
    input().release(Key::Escape);
    EXPECT_TRUE(isOverlayUp());
    EXPECT_NE(screen(), m_before);
    EXPECT_TRUE(m_program.savedPictures().isEmpty());
    input().type({Key::Escape});
    EXPECT_TRUE(m_program.waitForNoOverlay());
}

TEST_P(Text, BoxIsDraggedAndItsTextEditedAgainAndEmptied)
{
    write({Key::S, Key::A, Key::D, Key::Return});
    const QRect first = ink();
    const QPoint by(120, 61);
    QThread::msleep(kDoubleClickMs + 100);
    drag(kPlace, kPlace + by);
    clickAt(kNowhere);
    EXPECT_EQ(ink(), first.translated(by));
    doubleClick(kPlace + by); // selects the word, which gives way
    input().type({Key::D, Key::A, Key::S, Key::D, Key::A, Key::S, Key::Return});
    const QRect longer = ink();
    EXPECT_NEAR(longer.left(), first.left() + by.x(), 2 * scale());
    EXPECT_GT(longer.width(), first.width() * 3 / 2);
    doubleClick(kPlace + by);
    input().chord({Key::Control, Key::A});
    input().type({Key::BackSpace});
    clickApart(kNowhere);
    EXPECT_TRUE(samePixels(screen(), m_before));
    undo(); // there is nothing left to take back
    EXPECT_TRUE(samePixels(screen(), m_before));
    clickApart(kNowhere); // the next press writes again
    EXPECT_NE(screen(), m_before);
}

TEST_P(Text, MouseSelectsInTheTextThatIsEdited)
{
    write({Key::A, Key::S, Key::D, Key::A, Key::S, Key::D});
    const QRect box = ink();
    QThread::msleep(kDoubleClickMs + 100);
    drag(kPlace + QPoint(3 * scale(), 0), kPlace + QPoint(95 * scale(), 0));
    EXPECT_EQ(ink(), box); // it has not moved
    EXPECT_TRUE(copies("asdasd"));
    clickApart(kPlace + QPoint(3 * scale(), 0));
    input().type({Key::Q, Key::Return});
    doubleClick(kPlace + QPoint(3 * scale(), 0));
    EXPECT_TRUE(copies("qasdasd"));
}

TEST_P(Text, SelectedTextIsRestyledErasedAndUndone)
{
    write({Key::S, Key::A, Key::D, Key::Return});
    const QImage red = screen();
    clickApart(kPlace);
    setColor(kGreen);
    clickAt(kNowhere);
    const QImage green = screen();
    EXPECT_TRUE(whereRed(green, inside()).isEmpty());
    EXPECT_EQ(changed(green, m_before), changed(red, m_before));
    clickApart(kPlace);
    input().type({Key::BackSpace}); // takes the box
    EXPECT_TRUE(samePixels(screen(), m_before));
    undo();
    EXPECT_TRUE(samePixels(screen(), green));
    arm(kEraser);
    clickApart(kPlace);
    EXPECT_TRUE(samePixels(screen(), m_before));
    undo();
    EXPECT_TRUE(samePixels(screen(), green));
    undo();
    EXPECT_TRUE(samePixels(screen(), m_before));
    redo();
    EXPECT_TRUE(samePixels(screen(), green));
}
