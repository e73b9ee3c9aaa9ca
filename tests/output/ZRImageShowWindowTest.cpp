#include "output/ZRImageShowWindow.h"

#include "customui/ZRHoverButton.h"

#include <QFile>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

QImage numbered(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x, y, 7));
    return image;
}

// A pin of 80x40 points that shows a picture of 81x41 pixels without its first column and last row.
struct Pin {
    Pin()
    {
        window->backgroundWithImage(numbered(81, 41));
        window->setPlace({{10, 20, 80, 40}, {1, 0, 80, 40}}, {100, 0});
        window->onClose = [this] { ++closed; };
        window->orderFront();
    }
    void turnWheel(int angle, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QPointF middle(40, 20);
        QWheelEvent event(middle, window->mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, modifiers,
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.get(), &event);
    }

    std::unique_ptr<ZRImageShowWindow> window = ZRImageShowWindow::loadForNib();
    int closed = 0;
};

// Opens so many pins side by side, paints them and closes them.
void openAndClose(int count)
{
    std::vector<ZRImageShowWindow*> pins;
    for (int i = 0; i < count; ++i) {
        ZRImageShowWindow* pin = pins.emplace_back(ZRImageShowWindow::loadForNib().release());
        pin->backgroundWithImage(numbered(200, 100));
        pin->setPlace({{i, i, 199, 99}, {1, 0, 199, 99}}, {});
        pin->onClose = [pin] { pin->deleteLater(); };
        pin->orderFront();
        pin->grab();
    }
    for (ZRImageShowWindow* pin : pins)
        pin->actionClose();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// 0 where the system does not tell.
qint64 residentPages()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() : 0;
}

}

TEST(ZRImageShowWindow, ShowsItsButtonUnderThePointerOnly)
{
    const Pin pin;
    const auto* button = pin.window->findChild<ZRHoverButton*>();
    EXPECT_FALSE(button->isVisible());
    QEnterEvent enter({5, 5}, {5, 5}, {115, 25});
    QCoreApplication::sendEvent(pin.window.get(), &enter);
    EXPECT_TRUE(button->isVisible());
    EXPECT_TRUE(pin.window->rect().contains(button->geometry()));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(pin.window.get(), &leave);
    EXPECT_FALSE(button->isVisible());
}

TEST(ZRImageShowWindow, TurnsTheWheelIntoZoomAndOpacity)
{
    const Pin pin;
    const QRect before = pin.window->geometry();
    pin.turnWheel(60);
    EXPECT_EQ(pin.window->geometry(), before) << "half a step";
    pin.turnWheel(60);
    EXPECT_EQ(pin.window->size(), QSize(88, 44));
    pin.turnWheel(-120);
    EXPECT_EQ(pin.window->size(), before.size());
    pin.turnWheel(-240, Qt::ControlModifier);
    EXPECT_EQ(pin.window->size(), before.size());
}

TEST(ZRImageShowWindow, HandsOnTheWholePictureByKey)
{
    const Pin pin;
    QList<QImage> copied, saved;
    pin.window->onCopy = [&](const QImage& image) { copied << image; };
    pin.window->onSave = [&](const QImage& image) { saved << image; };
    QTest::keyClick(pin.window.get(), Qt::Key_C);
    QTest::keyClick(pin.window.get(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(pin.window.get(), Qt::Key_S, Qt::MetaModifier);
    EXPECT_EQ(copied, QList{numbered(81, 41)});
    EXPECT_EQ(saved, QList{numbered(81, 41)});
    EXPECT_EQ(pin.closed, 0);
}

TEST(ZRImageShowWindow, ClosesInThreeWays)
{
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWidget& window) { QTest::mouseClick(&window, Qt::MiddleButton); },
        [](QWidget& window) { window.findChild<ZRHoverButton*>()->sendAction(); },
    };
    for (const auto& close : ways) {
        const Pin pin;
        close(*pin.window);
        EXPECT_EQ(pin.closed, 1);
        EXPECT_FALSE(pin.window->isVisible());
    }
}

TEST(ZRImageShowWindow, StaysBlankWithoutAPicture)
{
    auto window = ZRImageShowWindow::loadForNib();
    window->backgroundWithImage({});
    window->setPlace({{0, 0, 10, 10}, {}}, {});
    window->orderFront();
    EXPECT_EQ(window->grab().size(), QSize(10, 10));
}

TEST(ZRImageShowWindow, LeavesNoMemoryBehind)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "it keeps what is freed for a while, and finds leaks itself";
#endif
    openAndClose(200);
    const qint64 warm = residentPages();
    if (warm == 0)
        GTEST_SKIP() << "this system does not tell";
    openAndClose(200);
    EXPECT_LE(double(residentPages()) / double(warm), 1.05);
}
