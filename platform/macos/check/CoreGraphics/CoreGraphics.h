#pragma once

#include <CoreGraphics/CGGeometry.h>

CHECKED_BEGIN

typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGContext* CGContextRef;
typedef struct CGDataProvider* CGDataProviderRef;
typedef struct CGImage* CGImageRef;
typedef struct __CGEvent* CGEventRef;
typedef struct __CGEventSource* CGEventSourceRef;
typedef uint32_t CGDirectDisplayID;
typedef uint32_t CGWindowID;
typedef uint16_t CGKeyCode;

// Pictures

enum CGImageAlphaInfo : uint32_t {
    kCGImageAlphaPremultipliedFirst = 2,
    kCGImageAlphaNoneSkipFirst = 6,
};
typedef CF_OPTIONS(uint32_t, CGBitmapInfo){
    kCGBitmapAlphaInfoMask = 0x1F,
    kCGBitmapFloatInfoMask = 0xF00,
    kCGBitmapByteOrderMask = 0x7000,
    kCGBitmapByteOrder32Little = 2 << 12,
};
enum : uint32_t { kCVPixelFormatType_32BGRA = 'BGRA' };

size_t CGImageGetWidth(CGImageRef image);
size_t CGImageGetHeight(CGImageRef image);
size_t CGImageGetBitsPerComponent(CGImageRef image);
size_t CGImageGetBitsPerPixel(CGImageRef image);
size_t CGImageGetBytesPerRow(CGImageRef image);
CGColorSpaceRef CGImageGetColorSpace(CGImageRef image);
CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image);
CGDataProviderRef CGImageGetDataProvider(CGImageRef image);
void CGImageRelease(CGImageRef image);
CFDataRef CGDataProviderCopyData(CGDataProviderRef provider);
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent,
    size_t bytesPerRow, CGColorSpaceRef space, uint32_t bitmapInfo);
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);
void CGContextRelease(CGContextRef context);

// Displays and the session

CGRect CGDisplayBounds(CGDirectDisplayID display);
CFDictionaryRef CGSessionCopyCurrentDictionary(void);

// Windows

typedef CF_OPTIONS(uint32_t, CGWindowListOption){
    kCGWindowListOptionOnScreenOnly = 1 << 0,
};
typedef CF_OPTIONS(uint32_t, CGWindowImageOption){
    kCGWindowImageBestResolution = 1 << 3,
};
enum : CGWindowID { kCGNullWindowID = 0 };
extern const CFStringRef kCGWindowBounds;
extern const CFStringRef kCGWindowAlpha;
extern const CFStringRef kCGWindowOwnerName;
extern const CFStringRef kCGWindowName;

CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID relativeToWindow);
bool CGPreflightScreenCaptureAccess(void) API_AVAILABLE(macos(10.15));
bool CGRequestScreenCaptureAccess(void) API_AVAILABLE(macos(10.15));

// Events

typedef CF_ENUM(int32_t, CGEventSourceStateID){
    kCGEventSourceStateCombinedSessionState = 0,
};
CGEventRef CGEventCreate(CGEventSourceRef source);
CGPoint CGEventGetLocation(CGEventRef event);
bool CGEventSourceKeyState(CGEventSourceStateID state, CGKeyCode key);

CHECKED_END
