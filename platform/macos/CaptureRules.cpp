#include "platform/macos/CaptureRules.h"

#include "platform/WindowServer.h"

bool CaptureRules::isFrameLayout(size_t bitsPerComponent, size_t bitsPerPixel, uint32_t bitmapInfo)
{
    const uint32_t alpha = bitmapInfo & kAlphaMask;
    return bitsPerComponent == 8 && bitsPerPixel == 32 && (alpha == kAlphaFirst || alpha == kSkipFirst) &&
           (bitmapInfo & kOrderMask) == kLittleEndian32 && (bitmapInfo & kFloatMask) == 0;
}

QString CaptureRules::reasonOf(long code, const QString& description)
{
    if (code == kDeclined)
        return FreezeRefusal::kNotPermitted;
    return QStringLiteral("the system did not give the display's pixels: %1 (%2)").arg(description).arg(code);
}
