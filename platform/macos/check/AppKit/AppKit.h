#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

typedef NS_ENUM(NSUInteger, NSEventType){
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeLeftMouseUp = 2,
    NSEventTypeRightMouseDown = 3,
    NSEventTypeRightMouseUp = 4,
    NSEventTypeMouseMoved = 5,
    NSEventTypeLeftMouseDragged = 6,
    NSEventTypeKeyDown = 10,
    NSEventTypeKeyUp = 11,
};
typedef NS_OPTIONS(unsigned long long, NSEventMask){
    NSEventMaskLeftMouseDown = 1ULL << NSEventTypeLeftMouseDown,
    NSEventMaskLeftMouseUp = 1ULL << NSEventTypeLeftMouseUp,
    NSEventMaskRightMouseDown = 1ULL << NSEventTypeRightMouseDown,
    NSEventMaskRightMouseUp = 1ULL << NSEventTypeRightMouseUp,
    NSEventMaskMouseMoved = 1ULL << NSEventTypeMouseMoved,
    NSEventMaskLeftMouseDragged = 1ULL << NSEventTypeLeftMouseDragged,
    NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown,
    NSEventMaskKeyUp = 1ULL << NSEventTypeKeyUp,
};

@interface NSEvent : NSObject
@property (readonly) NSEventType type;
@property (readonly) unsigned short keyCode;
@property (class, readonly) NSPoint mouseLocation;
@property (class, readonly) NSUInteger pressedMouseButtons;
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent* event))block;
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent* event))block;
+ (void)removeMonitor:(id)eventMonitor;
@end

@interface NSScreen : NSObject
@property (class, readonly) NSArray<NSScreen*>* screens;
@property (readonly) NSRect frame;
@property (readonly) CGFloat backingScaleFactor;
@property (readonly) NSDictionary<NSString*, id>* deviceDescription;
@property (readonly) NSString* localizedName API_AVAILABLE(macos(10.15));
@end

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask){
    NSWindowStyleMaskNonactivatingPanel = 1 << 7,
};
typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior){
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorStationary = 1 << 4,
    NSWindowCollectionBehaviorIgnoresCycle = 1 << 6,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8,
};
typedef NSInteger NSWindowLevel;

@interface NSWindow : NSObject
@property NSWindowStyleMask styleMask;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
@property BOOL hasShadow;
@property BOOL hidesOnDeactivate;
@property (readonly, getter=isKeyWindow) BOOL keyWindow;
@property (readonly, getter=isVisible) BOOL visible;
- (void)setFrame:(NSRect)frameRect display:(BOOL)displayFlag;
- (void)makeKeyWindow;
- (void)orderFrontRegardless;
@end

@interface NSView : NSObject
@property (readonly, weak) NSWindow* window;
@end

typedef NS_OPTIONS(NSUInteger, NSApplicationActivationOptions){
    NSApplicationActivateIgnoringOtherApps = 1 << 1,
};

@interface NSRunningApplication : NSObject
@property (class, readonly) NSRunningApplication* currentApplication;
@property (readonly, getter=isActive) BOOL active;
@property (readonly) pid_t processIdentifier;
@property (readonly, nullable) NSString* localizedName;
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)process;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
- (BOOL)activateFromApplication:(NSRunningApplication*)application
                        options:(NSApplicationActivationOptions)options API_AVAILABLE(macos(14.0));
@end

@interface NSApplication : NSObject
- (void)activate API_AVAILABLE(macos(14.0));
- (void)activateIgnoringOtherApps:(BOOL)flag API_DEPRECATED("activate", macos(10.0, 14.0));
- (void)yieldActivationToApplication:(NSRunningApplication*)application API_AVAILABLE(macos(14.0));
@end

@interface NSWorkspace : NSObject
@property (class, readonly) NSWorkspace* sharedWorkspace;
@property (readonly) NSNotificationCenter* notificationCenter;
@property (readonly) NSArray<NSRunningApplication*>* runningApplications;
- (BOOL)openURL:(NSURL*)url;
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)fileURLs;
@end

CHECKED_BEGIN

extern NSApplication* NSApp;
extern NSString* const NSApplicationDidChangeScreenParametersNotification;
extern NSString* const NSWorkspaceDidActivateApplicationNotification;

CHECKED_END
