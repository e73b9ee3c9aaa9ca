#pragma once

#include <Availability.h>
#include <TargetConditionals.h>

#include <stddef.h>
#include <stdint.h>

#define CHECKED_BEGIN extern "C" {
#define CHECKED_END }
#define CF_CONSUMED __attribute__((cf_consumed))
#define CF_ENUM(type, name) type name; enum : type
#define CF_OPTIONS(type, name) type name; enum __attribute__((flag_enum)) : type

CHECKED_BEGIN

typedef const void* CFTypeRef;
typedef signed long CFIndex;
typedef const struct __attribute__((objc_bridge(id))) __CFAllocator* CFAllocatorRef;
typedef const struct __attribute__((objc_bridge(NSString))) __CFString* CFStringRef;
typedef const struct __attribute__((objc_bridge(NSData))) __CFData* CFDataRef;
typedef const struct __attribute__((objc_bridge(NSArray))) __CFArray* CFArrayRef;
typedef const struct __attribute__((objc_bridge(NSDictionary))) __CFDictionary* CFDictionaryRef;
typedef const struct __attribute__((objc_bridge(NSURL))) __CFURL* CFURLRef;
typedef struct __attribute__((objc_bridge(NSError))) __CFError* CFErrorRef;

#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString(text))

void CFRelease(CFTypeRef object);
CFIndex CFDataGetLength(CFDataRef data);
const uint8_t* CFDataGetBytePtr(CFDataRef data);
CFDictionaryRef CFPreferencesCopyMultiple(
    CFArrayRef keys, CFStringRef application, CFStringRef user, CFStringRef host);
extern const CFStringRef kCFPreferencesCurrentUser;
extern const CFStringRef kCFPreferencesAnyHost;

CHECKED_END
