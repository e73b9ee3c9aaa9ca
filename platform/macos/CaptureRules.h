#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

// The numbers that a reading of the screen is asked for and answered with. Each is held against the system's
// own constant where both are known.
namespace CaptureRules {

inline constexpr uint32_t kOnScreenOnly = 1;   // of the window list: nothing that is hidden
inline constexpr uint32_t kBestResolution = 8; // of the older call: device pixels, not points
inline constexpr uint32_t kBgra = 0x42475241;  // 'BGRA', a pixel format
inline constexpr long kDeclined = -3801;       // the newer call's error: the user has not allowed it

// Of a picture's bitmap information.
inline constexpr uint32_t kAlphaMask = 0x1f;
inline constexpr uint32_t kAlphaFirst = 2; // premultiplied, which an opaque screen leaves as it is
inline constexpr uint32_t kSkipFirst = 6;
inline constexpr uint32_t kFloatMask = 0xf00;
inline constexpr uint32_t kOrderMask = 0x7000;
inline constexpr uint32_t kLittleEndian32 = 0x2000;

// Whether a picture's bytes are a frame's already: blue, green, red and a fourth byte.
bool isFrameLayout(size_t bitsPerComponent, size_t bitsPerPixel, uint32_t bitmapInfo);
// Why a reading failed, from the system's error.
QString reasonOf(long code, const QString& description);

}
