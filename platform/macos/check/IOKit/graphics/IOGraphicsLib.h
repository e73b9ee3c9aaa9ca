#pragma once

#include <CoreFoundation/CoreFoundation.h>

CHECKED_BEGIN

typedef unsigned int io_service_t;
typedef uint32_t IOOptionBits;
enum { kIODisplayOnlyPreferredName = 0x200 };
#define kDisplayProductName "DisplayProductName"

CFDictionaryRef IODisplayCreateInfoDictionary(io_service_t port, IOOptionBits options);

CHECKED_END
