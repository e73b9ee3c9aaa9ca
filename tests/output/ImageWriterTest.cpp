#include "output/ImageWriter.h"
#include "tests/output/TestPictures.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QTemporaryDir>

#include <cmath>
#include <fstream>
#include <thread>

#include <unistd.h>

using namespace TestPictures;

namespace {

QByteArray formatOf(const QByteArray& bytes)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader::imageFormat(&buffer);
}

// The largest difference in any colour of any pixel.
int largestDifference(const QImage& a, const QImage& b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

// Bytes of memory that this process occupies now.
long residentBytes()
{
    long total = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

}

TEST(ImageWriter, ChoosesTheTypeByTheExtension)
{
    const struct {
        QString extension;
        const char* format;
    } cases[] = {
        {QStringLiteral(".png"), "png"},
        {QString(), "png"},
        {QStringLiteral(".webp"), "png"},
        {QStringLiteral(".jpg"), "jpeg"},
        {QStringLiteral(".jpeg"), "jpeg"},
        {QStringLiteral(".bmp"), "bmp"},
        {QStringLiteral(".tiff"), "tiff"},
        {QStringLiteral(".gif"), "gif"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.extension.toStdString());
        EXPECT_EQ(formatOf(ImageWriter::encode(withColours(9), c.extension)), c.format);
    }
}

TEST(ImageWriter, KeepsEveryPixelInTypesWithoutLoss)
{
    for (const char* type : {"png", "bmp", "tiff"}) {
        for (const Named& picture : ofAwkwardWidths()) {
            SCOPED_TRACE(type + (", " + picture.name));
            const QByteArray file =
                ImageWriter::encode(picture.image, QLatin1Char('.') + QLatin1String(type));
            EXPECT_TRUE(samePixels(decoded(file, type), picture.image));
            EXPECT_FALSE(QImage::fromData(file, type).hasAlphaChannel());
        }
    }
}

TEST(ImageWriter, TakesRowsBorrowedFromALargerPictureAndOtherPixelFormats)
{
    const QImage whole = withColours(200);
    const QImage part = borrowedPart(whole, QRect(7, 5, 33, 21));
    for (const char* type : {"png", "bmp", "tiff", "gif"}) {
        SCOPED_TRACE(type);
        const QByteArray file = ImageWriter::encode(part, QLatin1Char('.') + QLatin1String(type));
        EXPECT_TRUE(samePixels(decoded(file, type), whole.copy(7, 5, 33, 21)));
    }
    const QImage packed = whole.convertToFormat(QImage::Format_RGB888);
    EXPECT_TRUE(samePixels(decoded(ImageWriter::encode(packed, QString()), "png"), whole));
}

TEST(ImageWriter, KeepsAGifsPixelsUpTo256Colours)
{
    for (int count : {1, 2, 3, 17, 128, 255, 256}) {
        SCOPED_TRACE(count);
        const QByteArray file = ImageWriter::encode(withColours(count), QStringLiteral(".gif"));
        EXPECT_TRUE(samePixels(decoded(file, "gif"), withColours(count)));
    }
}

// Text in red on blue, which thinned-out colour would smear.
TEST(ImageWriter, KeepsColouredTextCrispInJpeg)
{
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, x % 7 == 0 || y % 9 == 0 ? qRgb(220, 30, 30) : qRgb(30, 30, 200));
    }
    const QImage read = decoded(ImageWriter::encode(image, QStringLiteral(".jpg")), "jpeg");
    ASSERT_EQ(read.size(), image.size());
    EXPECT_LT(largestDifference(read, image), 48);
}

TEST(ImageWriter, SaysThatNoPictureCanBeEncoded)
{
    QTemporaryDir folder;
    const struct {
        QImage image;
        QString type;
    } cases[] = {
        {QImage(), QStringLiteral(".png")},
        {QImage(), QStringLiteral(".gif")},
        {QImage(70000, 1, QImage::Format_RGB32), QStringLiteral(".jpg")},
        {QImage(70000, 1, QImage::Format_RGB32), QStringLiteral(".gif")},
    };
    for (const auto& c : cases) {
        const WriteResult result = ImageWriter::write(folder.filePath(QStringLiteral("a")), c.image, c.type);
        EXPECT_FALSE(result.ok);
        EXPECT_FALSE(result.reason.isEmpty());
        EXPECT_TRUE(ImageWriter::encode(c.image, c.type).isEmpty());
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(ImageWriter, WritesFilesAndReportsFailures)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.png"));
    const WriteResult good = ImageWriter::write(path, withColours(5), QStringLiteral(".png"));
    EXPECT_TRUE(good.ok);
    EXPECT_TRUE(good.reason.isEmpty());
    EXPECT_TRUE(samePixels(QImage(path), withColours(5)));
    const WriteResult bad = ImageWriter::write(path + QStringLiteral("/b.png"), withColours(5), QString());
    EXPECT_FALSE(bad.ok);
    EXPECT_TRUE(bad.reason.contains(QLatin1String("Not a directory")));
}

TEST(ImageWriter, GivesItsMemoryBack)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer keeps freed memory";
#endif
    const QImage noise = ofSize(2000, 1500)[4].image;
    QTemporaryDir folder;
    const auto writeEach = [&] {
        for (const char* type : {".png", ".jpg", ".bmp", ".tiff", ".gif"})
            ImageWriter::write(folder.filePath(QStringLiteral("a")), noise, QLatin1String(type));
    };
    std::thread(writeEach).join();
    const long before = residentBytes();
    for (int i = 0; i < 4; ++i)
        std::thread(writeEach).join();
    EXPECT_LT(residentBytes() - before, 2 << 20);
}
