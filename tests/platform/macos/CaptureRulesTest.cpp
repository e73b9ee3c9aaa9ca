#include "platform/macos/CaptureRules.h"
#include "platform/WindowServer.h"

#include <gtest/gtest.h>

TEST(MacCapture, BorrowsOnlyBytesThatAreAFramesAlready)
{
    struct Case {
        const char* name;
        size_t bits, bitsPerPixel;
        uint32_t info;
        bool isFrame;
    };
    const Case cases[] = {
        {"little endian, fourth byte skipped", 8, 32, 0x2006, true},
        {"little endian, premultiplied", 8, 32, 0x2002, true},
        {"alpha last", 8, 32, 0x2001, false},
        {"alpha last, skipped", 8, 32, 0x2005, false},
        {"not premultiplied", 8, 32, 0x2004, false},
        {"big endian", 8, 32, 0x4006, false},
        {"default order", 8, 32, 0x0006, false},
        {"sixteen bits, little endian", 8, 32, 0x1006, false},
        {"floating point", 8, 32, 0x2106, false},
        {"ten bits", 10, 32, 0x2006, false},
        {"half floats", 16, 64, 0x2006, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(CaptureRules::isFrameLayout(c.bits, c.bitsPerPixel, c.info), c.isFrame);
    }
}

TEST(MacCapture, TellsAMissingPermissionFromOtherErrors)
{
    EXPECT_EQ(CaptureRules::reasonOf(-3801, QStringLiteral("declined")), FreezeRefusal::kNotPermitted);
    const QString other = CaptureRules::reasonOf(-3815, QStringLiteral("no display"));
    EXPECT_TRUE(other.contains(QStringLiteral("no display (-3815)"))) << qPrintable(other);
}
