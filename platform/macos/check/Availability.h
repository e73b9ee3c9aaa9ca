#pragma once

#include <AvailabilityMacros.h>

// For one system, macOS: API_AVAILABLE(macos(14.0)), API_DEPRECATED("instead of it", macos(10.5, 10.11)).
#define CHECKED_SINCE_macos(first) __attribute__((availability(macos, introduced = first)))
#define CHECKED_WHILE_macos(first, last) \
    __attribute__((availability(macos, introduced = first, deprecated = last)))
#define API_AVAILABLE(system) CHECKED_SINCE_##system
#define API_DEPRECATED(instead, system) CHECKED_WHILE_##system
