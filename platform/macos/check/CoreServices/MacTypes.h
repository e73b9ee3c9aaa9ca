#pragma once

typedef int OSStatus;
typedef unsigned int UInt32;
typedef UInt32 OSType;
enum { noErr = 0 };
