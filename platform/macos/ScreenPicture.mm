#include "platform/macos/ScreenPicture.h"

#include "platform/macos/CaptureRules.h"

namespace {

static_assert(CaptureRules::kAlphaMask == kCGBitmapAlphaInfoMask);
static_assert(CaptureRules::kAlphaFirst == kCGImageAlphaPremultipliedFirst);
static_assert(CaptureRules::kSkipFirst == kCGImageAlphaNoneSkipFirst);
static_assert(CaptureRules::kFloatMask == kCGBitmapFloatInfoMask);
static_assert(CaptureRules::kOrderMask == kCGBitmapByteOrderMask);
static_assert(CaptureRules::kLittleEndian32 == kCGBitmapByteOrder32Little);

QSize sizeOf(CGImageRef image)
{
    return {int(CGImageGetWidth(image)), int(CGImageGetHeight(image))};
}

void releaseData(void* data)
{
    CFRelease(data);
}

// The system's own bytes, which the image gives back when its last copy goes.
QImage borrowed(CGImageRef image)
{
    const size_t bytesPerRow = CGImageGetBytesPerRow(image);
    const QSize size = sizeOf(image);
    CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider(image));
    if (!data)
        return {};
    if (size_t(CFDataGetLength(data)) < bytesPerRow * size_t(size.height() - 1) + size_t(size.width()) * 4) {
        CFRelease(data);
        return {};
    }
    return QImage(CFDataGetBytePtr(data), size.width(), size.height(), qsizetype(bytesPerRow),
        QImage::Format_RGB32, releaseData, const_cast<void*>(static_cast<const void*>(data)));
}

// In the picture's own colour space, so that drawing it leaves the colours alone.
CGContextRef newContext(QImage& onto, CGColorSpaceRef space)
{
    return CGBitmapContextCreate(onto.bits(), size_t(onto.width()), size_t(onto.height()), 8,
        size_t(onto.bytesPerLine()), space, CaptureRules::kSkipFirst | CaptureRules::kLittleEndian32);
}

QImage drawn(CGImageRef image)
{
    QImage picture(sizeOf(image), QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    CGContextRef context = newContext(picture, CGImageGetColorSpace(image));
    if (!context)
        return {};
    CGContextDrawImage(context, CGRectMake(0, 0, picture.width(), picture.height()), image);
    CGContextRelease(context);
    return picture;
}

}

QImage pictureOf(CGImageRef image)
{
    const bool isFrame = CaptureRules::isFrameLayout(
        CGImageGetBitsPerComponent(image), CGImageGetBitsPerPixel(image), CGImageGetBitmapInfo(image));
    return isFrame ? borrowed(image) : drawn(image);
}
