#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/MacTypes.h>

CHECKED_BEGIN

typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef OSType EventParamName;
typedef OSType EventParamType;

enum { cmdKey = 1 << 8, shiftKey = 1 << 9, optionKey = 1 << 11, controlKey = 1 << 12 };
enum {
    eventInternalErr = -9868,
    eventNotHandledErr = -9874,
    eventHotKeyExistsErr = -9878,
    eventHotKeyInvalidErr = -9879,
};
enum : OSType { kEventClassKeyboard = 'keyb' };
enum : UInt32 { kEventHotKeyPressed = 5 };
enum : EventParamName { kEventParamDirectObject = '----' };
enum : EventParamType { typeEventHotKeyID = 'hkid' };
typedef UInt32 OptionBits;
enum : OptionBits { kEventHotKeyNoOptions = 0, kHIHotKeyModeAllDisabled = 1 << 0 };

struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};
struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
typedef struct EventTypeSpec EventTypeSpec;
typedef struct EventHotKeyID EventHotKeyID;
typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef next, EventRef event, void* userData);

EventTargetRef GetEventDispatcherTarget(void);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, unsigned long typeCount,
    const EventTypeSpec* types, void* userData, EventHandlerRef* handlerRef);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType desiredType,
    EventParamType* actualType, unsigned long bufferSize, unsigned long* actualSize, void* data);
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
    OptionBits options, EventHotKeyRef* reference);
OSStatus UnregisterEventHotKey(EventHotKeyRef reference);
OSStatus CopySymbolicHotKeys(CFArrayRef* keys);
void* PushSymbolicHotKeyMode(OptionBits options);
void PopSymbolicHotKeyMode(void* token);
#define kHISymbolicHotKeyCode CFSTR("kHISymbolicHotKeyCode")
#define kHISymbolicHotKeyModifiers CFSTR("kHISymbolicHotKeyModifiers")
#define kHISymbolicHotKeyEnabled CFSTR("kHISymbolicHotKeyEnabled")
extern const CFStringRef kTISNotifySelectedKeyboardInputSourceChanged;

CHECKED_END
