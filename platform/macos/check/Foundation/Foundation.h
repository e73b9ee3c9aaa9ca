#pragma once

#include <CoreGraphics/CGGeometry.h>

#include <sys/types.h>

#if __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES ((BOOL)1)
#define NO ((BOOL)0)
#define nil nullptr

#define NS_ENUM(type, name) type name; enum : type
#define NS_OPTIONS(type, name) type name; enum __attribute__((flag_enum)) : type

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef CGRect NSRect;
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef struct _NSZone NSZone;

inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    return {{x, y}, {width, height}};
}

typedef struct {
    unsigned long state;
    id __unsafe_unretained* itemsPtr;
    unsigned long* mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

__attribute__((objc_root_class)) @interface NSObject
+ (instancetype)alloc;
- (instancetype)init;
@end

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)count;
@end

@protocol NSCopying
@end

@class NSArray<Element>, NSDictionary<Key, Value>, NSError, NSURL;

@interface NSString : NSObject <NSCopying>
- (BOOL)hasPrefix:(NSString*)text;
@end

@interface NSConstantString : NSString
@end

@interface NSNumber : NSObject <NSCopying>
@property (readonly) int intValue;
@property (readonly) unsigned int unsignedIntValue;
@property (readonly) double doubleValue;
@property (readonly) BOOL boolValue;
@end

@interface NSData : NSObject
@end

@interface NSArray<__covariant Element> : NSObject <NSFastEnumeration>
@property (readonly) NSUInteger count;
@property (readonly) Element firstObject;
+ (instancetype)array;
+ (instancetype)arrayWithObjects:(const Element[])objects count:(NSUInteger)count;
@end

@interface NSMutableArray<Element> : NSArray<Element>
- (void)addObject:(Element)object;
@end

@interface NSDictionary<__covariant Key, __covariant Value> : NSObject <NSFastEnumeration>
@property (readonly) NSUInteger count;
@property (readonly) NSArray<Value>* allValues;
+ (instancetype)dictionary;
- (Value)objectForKeyedSubscript:(Key)key;
- (BOOL)writeToURL:(NSURL*)url error:(NSError**)error API_AVAILABLE(macos(10.13));
@end

@interface NSMutableDictionary<Key, Value> : NSDictionary<Key, Value>
- (void)setObject:(Value)object forKeyedSubscript:(Key<NSCopying>)key;
@end

@interface NSError : NSObject
@property (readonly) NSInteger code;
@property (readonly) NSString* localizedDescription;
@end

typedef NS_OPTIONS(NSUInteger, NSURLBookmarkCreationOptions){
    NSURLBookmarkCreationWithSecurityScope = 1UL << 11,
};
typedef NS_OPTIONS(NSUInteger, NSURLBookmarkResolutionOptions){
    NSURLBookmarkResolutionWithoutUI = 1UL << 8,
    NSURLBookmarkResolutionWithSecurityScope = 1UL << 10,
};

@interface NSURL : NSObject
@property (readonly) NSString* path;
+ (NSURL*)fileURLWithPath:(NSString*)path;
- (NSData*)bookmarkDataWithOptions:(NSURLBookmarkCreationOptions)options
    includingResourceValuesForKeys:(NSArray<NSString*>*)keys
                     relativeToURL:(NSURL*)relativeURL
                             error:(NSError**)error;
+ (instancetype)URLByResolvingBookmarkData:(NSData*)bookmarkData
                                   options:(NSURLBookmarkResolutionOptions)options
                             relativeToURL:(NSURL*)relativeURL
                       bookmarkDataIsStale:(BOOL*)isStale
                                     error:(NSError**)error;
- (BOOL)startAccessingSecurityScopedResource;
- (void)stopAccessingSecurityScopedResource;
@end

@interface NSBundle : NSObject
@property (class, readonly) NSBundle* mainBundle;
@property (readonly) NSURL* bundleURL;
@property (readonly) NSString* bundlePath;
@end

@interface NSNotification : NSObject
@end

@interface NSOperationQueue : NSObject
@end

@interface NSNotificationCenter : NSObject
@property (class, readonly) NSNotificationCenter* defaultCenter;
- (id)addObserverForName:(NSString*)name
                  object:(id)object
                   queue:(NSOperationQueue*)queue
              usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
@end

// Takes the object over.
inline id CFBridgingRelease(CFTypeRef CF_CONSUMED object)
{
    return (__bridge_transfer id)object;
}
