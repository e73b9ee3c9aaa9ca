#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

// Since macOS 12.3.
#define CHECKED_KIT API_AVAILABLE(macos(12.3))

typedef NS_ENUM(NSInteger, SCStreamErrorCode){
    SCStreamErrorUserDeclined = -3801,
};
typedef NS_ENUM(NSInteger, SCCaptureResolutionType){
    SCCaptureResolutionBest = 1,
};

CHECKED_KIT @interface SCWindow : NSObject
@end

CHECKED_KIT @interface SCDisplay : NSObject
@property (readonly) CGDirectDisplayID displayID;
@end

CHECKED_KIT @interface SCShareableContent : NSObject
@property (readonly) NSArray<SCDisplay*>* displays;
+ (void)getShareableContentExcludingDesktopWindows:(BOOL)excludeDesktopWindows
                               onScreenWindowsOnly:(BOOL)onScreenWindowsOnly
                                 completionHandler:(void (^)(SCShareableContent* content, NSError* error))handler;
@end

CHECKED_KIT @interface SCContentFilter : NSObject
- (instancetype)initWithDisplay:(SCDisplay*)display excludingWindows:(NSArray<SCWindow*>*)excluded;
@end

CHECKED_KIT @interface SCStreamConfiguration : NSObject
@property size_t width;
@property size_t height;
@property uint32_t pixelFormat;
@property BOOL showsCursor;
@property SCCaptureResolutionType captureResolution API_AVAILABLE(macos(14.0));
@end

API_AVAILABLE(macos(14.0)) @interface SCScreenshotManager : NSObject
+ (void)captureImageWithFilter:(SCContentFilter*)contentFilter
                 configuration:(SCStreamConfiguration*)config
             completionHandler:(void (^)(CGImageRef image, NSError* error))completionHandler;
@end
