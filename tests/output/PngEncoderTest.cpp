#include "output/PngEncoder.h"
#include "tests/output/TestPictures.h"

#include <gtest/gtest.h>

using namespace TestPictures;

namespace {

QByteArray bytesOf(const PageBuffer& pages)
{
    return QByteArray(reinterpret_cast<const char*>(pages.data()), qsizetype(pages.size()));
}

}

TEST(PngEncoder, KeepsEveryPixel)
{
    for (const Named& picture : ofAwkwardWidths()) {
        for (PngEffort effort : {PngEffort::Small, PngEffort::Quick}) {
            SCOPED_TRACE(picture.name);
            const QByteArray png = bytesOf(PngEncoder::encode(picture.image, effort));
            EXPECT_TRUE(samePixels(decoded(png, "PNG"), picture.image));
        }
    }
}

// Enough rows for two threads, whose bands must meet without a seam.
TEST(PngEncoder, WritesTheSameBytesOnEveryKindOfProcessor)
{
    for (const Named& picture : ofSize(133, 301)) {
        SCOPED_TRACE(picture.name);
        const auto encodedBy = [&](const PngRowFilters& filters) {
            return bytesOf(PngEncoder::encode(picture.image, PngEffort::Small, filters));
        };
        const QByteArray plain = encodedBy(PngRowFilters::portable());
        EXPECT_TRUE(samePixels(decoded(plain, "PNG"), picture.image));
        for (const PngRowFilters* filters : {PngRowFilters::ssse3(), PngRowFilters::avx2()})
            EXPECT_TRUE(!filters || encodedBy(*filters) == plain);
    }
}

TEST(PngEncoder, WritesRgbAndNothingBesideThePixels)
{
    const QByteArray png = bytesOf(PngEncoder::encode(ofSize(40, 30)[0].image, PngEffort::Small));
    const QByteArray header("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x28\0\0\0\x1e\x08\2\0\0\0", 29);
    EXPECT_EQ(png.left(29), header);
    EXPECT_EQ(png.mid(37, 4), QByteArray("IDAT"));
    const qsizetype data = qsizetype(uchar(png[35])) << 8 | uchar(png[36]);
    EXPECT_EQ(png.mid(41 + data + 4), QByteArray("\0\0\0\0IEND\xae\x42\x60\x82", 12));
}

TEST(PngEncoder, HasNoBytesForAnImpossiblePicture)
{
    EXPECT_TRUE(PngEncoder::encode(QImage(), PngEffort::Small).isEmpty());
}
