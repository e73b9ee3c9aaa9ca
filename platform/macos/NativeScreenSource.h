#pragma once

#include "platform/macos/ScreenSource.h"

#include <memory>

// ScreenCaptureKit; below macOS 14, which has no single pictures in it, the window server's older call.
std::unique_ptr<ScreenSource> makeScreenSource();
