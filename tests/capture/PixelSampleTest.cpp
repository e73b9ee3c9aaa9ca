#include "capture/PixelSample.h"

#include "settings/AppSettings.h"
#include "tests/fakes/FakeDisplays.h"
#include "tests/fakes/FakeWindowServer.h"

#include <gtest/gtest.h>

TEST(PixelSample, CentresThePixelThatBeginsAtThePoint)
{
    PixelSample sample;
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const DisplayRecord display = FakeDisplays::display(3, {0, 0, 300, 200}, scale);
        const Frame frame(display, FakeWindowServer::picture(display));
        for (const QPoint pixel : {QPoint(150, 100), QPoint(0, 0), QPoint(299, 199), QPoint(7, 191)}) {
            SCOPED_TRACE(testing::Message() << pixel.x() << ',' << pixel.y() << " at scale " << scale);
            const QImage& picture = sample.around(frame, display.localPoint(pixel));
            const int middle = picture.width() / 2;
            EXPECT_EQ(picture.pixel(middle, middle), FakeWindowServer::pixel(3, pixel.x(), pixel.y()));
            const QPointF asked(picture.width() * 0.5, picture.height() * 0.5);
            EXPECT_EQ(AppSettings::getPixelColorAtLocation(asked, picture)->rgb(),
                FakeWindowServer::pixel(3, pixel.x(), pixel.y()));
        }
    }
}

TEST(PixelSample, FillsWhatLiesOutsideTheDisplay)
{
    const DisplayRecord display = FakeDisplays::display(3, {0, 0, 300, 200}, 1);
    const Frame frame(display, FakeWindowServer::picture(display));
    PixelSample sample;
    const QImage corner = sample.around(frame, {299, 1}).copy(); // the last pixel
    EXPECT_EQ(corner.pixel(17, 16), PixelSample::kOutside);
    EXPECT_EQ(corner.pixel(16, 17), PixelSample::kOutside);
    EXPECT_EQ(corner.pixel(0, 0), FakeWindowServer::pixel(3, 283, 183));
    const QImage& beside = sample.around(frame, {-40, 500}); // the first pixel is the nearest
    EXPECT_EQ(beside.pixel(15, 16), PixelSample::kOutside);
    EXPECT_EQ(beside.pixel(16, 16), FakeWindowServer::pixel(3, 0, 0));
    EXPECT_EQ(beside.pixel(31, 31), FakeWindowServer::pixel(3, 15, 15));
}
