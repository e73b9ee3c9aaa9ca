#pragma once

#include <CoreServices/MacTypes.h>
#include <Foundation/Foundation.h>

CHECKED_BEGIN

typedef struct OpaqueLSSharedFileListRef* LSSharedFileListRef;
typedef struct OpaqueLSSharedFileListItemRef* LSSharedFileListItemRef;
typedef void* IconRef;
#define CHECKED_LIST API_DEPRECATED("SMAppService", macos(10.5, 10.11))

extern const CFStringRef kLSSharedFileListSessionLoginItems CHECKED_LIST;
extern const LSSharedFileListItemRef kLSSharedFileListItemLast CHECKED_LIST;

LSSharedFileListRef LSSharedFileListCreate(CFAllocatorRef allocator, CFStringRef listType, CFTypeRef options)
    CHECKED_LIST;
CFArrayRef LSSharedFileListCopySnapshot(LSSharedFileListRef list, UInt32* seed) CHECKED_LIST;
LSSharedFileListItemRef LSSharedFileListInsertItemURL(LSSharedFileListRef list, LSSharedFileListItemRef after,
    CFStringRef displayName, IconRef icon, CFURLRef url, CFDictionaryRef propertiesToSet,
    CFArrayRef propertiesToClear) CHECKED_LIST;
OSStatus LSSharedFileListItemRemove(LSSharedFileListRef list, LSSharedFileListItemRef item) CHECKED_LIST;
CFURLRef LSSharedFileListItemCopyResolvedURL(LSSharedFileListItemRef item, UInt32 flags, CFErrorRef* error)
    API_DEPRECATED("SMAppService", macos(10.10, 10.11));

CHECKED_END
