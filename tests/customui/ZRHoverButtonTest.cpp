#include "customui/Images.h"
#include "customui/ZRCheckHoverButton.h"
#include "tests/customui/ButtonStage.h"

#include <QAccessible>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QColor kHover(206, 224, 255);
const QColor kDown(150, 180, 255);

// With a save button.
struct Stage : ButtonStage {
    Stage()
    {
        add(button);
        button.setImage(QStringLiteral("save-normal"));
        button.setHoverImage(QStringLiteral("save-hover"));
        button.setDownImage(QStringLiteral("save-down"));
        button.setCheckOnImage(QStringLiteral("save-down"));
        button.setHoverBackgroundColor(kHover);
        button.setDownBackgroundColor(kDown);
    }
    QImage picture() { return ButtonStage::picture(button); }

    ZRCheckHoverButton button;
};
constexpr QPoint kInside = Stage::kInside, kOutside = Stage::kOutside;

QImage expected(const char* imageName, const QColor& background)
{
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter(&image).drawPixmap(4, 4, imageNamed(QLatin1String(imageName), {24, 24}, 1));
    return image;
}

// Compares without the corners, which are round.
void expectLooks(const QImage& seen, const char* imageName, const QColor& background)
{
    const QRect middle(4, 0, 24, 32);
    EXPECT_EQ(seen.copy(middle), expected(imageName, background).copy(middle)) << imageName;
}

}

TEST(ZRHoverButton, ShowsWhatThePointerDoes)
{
    Stage stage;
    ZRCheckHoverButton& button = stage.button;
    expectLooks(stage.picture(), "save-normal", Qt::white);
    button.mouseEntered();
    expectLooks(stage.picture(), "save-hover", kHover);
    button.mouseDown(stage.at(kInside));
    expectLooks(stage.picture(), "save-down", kDown);
    button.mouseDragged(stage.at(kOutside));
    expectLooks(stage.picture(), "save-normal", Qt::white);
    button.mouseDragged(stage.at(kInside));
    expectLooks(stage.picture(), "save-down", kDown);
    button.mouseUp(stage.at(kInside));
    expectLooks(stage.picture(), "save-hover", kHover);
    button.setState(true);
    expectLooks(stage.picture(), "save-down", kHover);
    button.mouseExited();
    expectLooks(stage.picture(), "save-down", Qt::white);
    button.setState(false);
    expectLooks(stage.picture(), "save-normal", Qt::white);
}

TEST(ZRHoverButton, ShowsTheNormalPictureWhereAnotherIsMissing)
{
    Stage stage;
    stage.button.setHoverImage(QStringLiteral("nothing-hover"));
    stage.button.setDownImage({});
    stage.button.mouseEntered();
    expectLooks(stage.picture(), "save-normal", kHover);
    stage.button.mouseDown(stage.at(kInside));
    expectLooks(stage.picture(), "save-normal", kDown);
}

TEST(ZRHoverButton, ClicksWhenReleasedInside)
{
    struct Case {
        const char* what;
        QPoint press, release;
        Qt::MouseButton button;
        bool isEnabled;
        int clicks;
    };
    const Case cases[] = {
        {"inside", kInside, kInside, Qt::LeftButton, true, 1},
        {"from its first pixel to its last", {0, 0}, {31, 31}, Qt::LeftButton, true, 1},
        {"released one pixel below", kInside, {16, 32}, Qt::LeftButton, true, 0},
        {"the right button", kInside, kInside, Qt::RightButton, true, 0},
        {"disabled", kInside, kInside, Qt::LeftButton, false, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Stage stage;
        stage.button.setEnabled(c.isEnabled);
        QTest::mousePress(&stage.button, c.button, {}, c.press);
        QTest::mouseRelease(&stage.button, c.button, {}, c.release);
        EXPECT_EQ(stage.clicks, c.clicks);
        EXPECT_FALSE(stage.button.isMouseDown());
    }
}

TEST(ZRHoverButton, IsPressedByKeysAndByAssistiveTools)
{
    Stage stage;
    QTest::keyClick(&stage.button, Qt::Key_Space);
    QTest::keyClick(&stage.button, Qt::Key_Return);
    QTest::keyClick(&stage.button, Qt::Key_S);
    EXPECT_EQ(stage.clicks, 2);

    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&stage.button);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stage.clicks, 3);
    EXPECT_FALSE(accessible->state().checked);
    stage.button.setState(true);
    EXPECT_TRUE(accessible->state().checked);
    stage.button.setTitle(QStringLiteral("Title"));
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Title"));
    stage.button.setAccessibleName(QStringLiteral("Save"));
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Save"));
}

TEST(ZRHoverButton, AnswersToItsKeyEquivalentOnly)
{
    constexpr quint32 kCommand = 0x100000;
    struct Case {
        const char* key;
        quint32 modifiers;
        bool isOwn;
    };
    const Case cases[] = {{"s", kCommand, true}, {"S", kCommand, true}, {"s", 0, false},
        {"c", kCommand, false}, {"", kCommand, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        Stage stage;
        stage.button.setKeyEquivalent(QStringLiteral("S"));
        stage.button.setKeyEquivalentModifierMask(kCommand);
        EXPECT_EQ(stage.button.performKeyEquivalent(QLatin1String(c.key), c.modifiers), c.isOwn);
        EXPECT_EQ(stage.clicks, c.isOwn ? 1 : 0);
    }
    Stage none;
    EXPECT_FALSE(none.button.performKeyEquivalent({}, 0));
}
