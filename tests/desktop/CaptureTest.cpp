#include "tests/desktop/ProgramTest.h"

#include <QFileInfo>
#include <QImageReader>

namespace {

// One pixel a point, each the mean of `scale` times `scale` device pixels.
QImage averaged(const QImage& picture, int scale)
{
    QImage result(picture.size() / scale, QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x) {
            int red = 0, green = 0, blue = 0;
            for (int i = 0; i < scale * scale; ++i) {
                const QRgb pixel = picture.pixel(x * scale + i % scale, y * scale + i / scale);
                red += qRed(pixel);
                green += qGreen(pixel);
                blue += qBlue(pixel);
            }
            const int count = scale * scale;
            result.setPixel(x, y,
                qRgb(qRound(red / double(count)), qRound(green / double(count)),
                    qRound(blue / double(count))));
        }
    }
    return result;
}

class Capture : public EachDesktopTest { };

// As over a network.
class CaptureWithoutSharedMemory : public ProgramTest {
protected:
    CaptureWithoutSharedMemory()
        : ProgramTest({.serverArguments = {QStringLiteral("-extension"), QStringLiteral("MIT-SHM")}})
    {
    }
};

} // namespace

LUMORA_ON_EACH_DESKTOP(Capture);

TEST_P(Capture, RegionIsTheScreensOwnPixelsWhateverWayItIsDragged)
{
    struct Case {
        const char* way;
        QPoint from, to;
        Key modifier;
    };
    const Case cases[] = {
        {"right and down", {101, 77}, {640, 411}, Key::Control},
        {"left and up", {640, 411}, {101, 77}, Key::Super},
        {"right and up", {0, 799}, {333, 0}, Key::Control},
        {"left and down", {1279, 3}, {1000, 790}, Key::Control},
    };
    ASSERT_TRUE(m_program.startResident());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.way);
        ASSERT_TRUE(openOverlay());
        input().drag(c.from, c.to);
        const QImage picture = pictureAfter({c.modifier, Key::S});
        EXPECT_TRUE(samePixels(picture, m_before.copy(spannedBy(c.from, c.to))));
    }
}

TEST_P(Capture, FileTypeFollowsTheSetting)
{
    struct Case {
        const char* extension;
        const char* format;
        double tolerance; // mean difference a channel
    };
    const Case cases[] = {
        {".png", "png", 0},
        {".bmp", "bmp", 0},
        {".tiff", "tiff", 0},
        {".jpg", "jpeg", 3},
        {".gif", "gif", 3},
        {".JPG", "jpeg", 3},
    };
    const QPoint from(33, 65), to(391, 270); // a terminal's text
    for (const Case& c : cases) {
        SCOPED_TRACE(c.extension);
        m_program.writeSettings({{QStringLiteral("screenshotType"), QLatin1String(c.extension)}});
        ASSERT_TRUE(m_program.startResident());
        const auto region = startRegion();
        ASSERT_TRUE(region);
        input().drag(from, to);
        input().chord({Key::Control, Key::S});
        const Answer answer = Program::finish(*region);
        EXPECT_EQ(answer.exitCode, 0) << qPrintable(answer.err);
        EXPECT_EQ(
            QLatin1Char('.') + QFileInfo(answer.path()).suffix(), QString::fromLatin1(c.extension).toLower());
        EXPECT_EQ(QImageReader::imageFormat(answer.path()), c.format);
        EXPECT_LE(meanDifference(QImage(answer.path()), m_before.copy(spannedBy(from, to))), c.tolerance);
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Capture, QualityDecidesBetweenDevicePixelsAndPoints)
{
    struct Case {
        const char* scale;
        int quality;
        QPoint from, to;
        int averagedBy; // device pixels a side that become one
    };
    const Case cases[] = {
        {"2", 8, {101, 77}, {640, 411}, 1},
        {"2", 8, {1279, 799}, {640, 411}, 1}, // from the last half points of the display
        {"2", 16, {100, 78}, {640, 412}, 2},
        {"1", 16, {101, 77}, {640, 411}, 1},
        {"1.25", 8, {101, 77}, {640, 411}, 1},
        {"1.5", 8, {641, 411}, {102, 77}, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "scale " << c.scale << ", quality " << c.quality);
        m_program.writeSettings({{QStringLiteral("userNeedImageQuality"), c.quality}});
        ASSERT_TRUE(startResidentAt(c.scale));
        ASSERT_TRUE(openOverlay());
        input().drag(c.from, c.to);
        const QImage picture = pictureAfter({Key::Control, Key::S});
        const QImage expected = averaged(m_before.copy(spannedBy(c.from, c.to)), c.averagedBy);
        EXPECT_EQ(picture.size(), expected.size());
        EXPECT_LE(meanDifference(picture, expected), c.averagedBy == 1 ? 0 : 0.5);
        EXPECT_EQ(m_program.quitResident(), 0);
    }
}

TEST_P(Capture, HeldKeyAndHurriedKeysStartOne)
{
    struct Case {
        const char* way;
        std::vector<Key> keys;
        int times;
        bool isHeld;
    };
    const Case cases[] = {
        {"held", {Key::Super, Key::Digit1}, 1, true},
        {"twice", {Key::Super, Key::Digit1}, 2, false},
        {"both keys", {Key::Super, Key::Digit1, Key::Digit2}, 1, false},
    };
    ASSERT_TRUE(m_program.startResident());
    int starts = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.way);
        m_before = m_desktop.settledScreen();
        for (int i = 0; i < c.times; ++i) {
            input().releaseAll();
            for (const Key key : c.keys)
                input().press(key);
        }
        if (c.isHeld)
            QThread::msleep(900); // a held key repeats after 0.6 s
        else
            input().releaseAll();
        ASSERT_TRUE(m_program.waitForOverlay(m_before));
        input().click(Button::Right);
        ASSERT_TRUE(waitForRest());
        QThread::msleep(300); // a key still down must not start another
        EXPECT_EQ(m_program.overlay(), XCB_NONE);
        EXPECT_EQ(logCount("start screenshot"), ++starts);
        input().releaseAll();
    }
    EXPECT_TRUE(m_program.savedPictures().isEmpty());
}

TEST_F(CaptureWithoutSharedMemory, ShowsTheSameOverlayAndSavesTheSamePicture)
{
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(openOverlay());
    EXPECT_TRUE(savesRegion({101, 77}, {640, 411}));
    EXPECT_TRUE(samePixels(pictureAfter({Key::Super, Key::Digit2}), m_before));
}
