#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef double CGFloat;

struct CGPoint {
    CGFloat x, y;
};
typedef struct CGPoint CGPoint;

struct CGSize {
    CGFloat width, height;
};
typedef struct CGSize CGSize;

struct CGRect {
    CGPoint origin;
    CGSize size;
};
typedef struct CGRect CGRect;

inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    return {{x, y}, {width, height}};
}

CHECKED_BEGIN

extern const CGRect CGRectZero;
bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect* rect);

CHECKED_END
