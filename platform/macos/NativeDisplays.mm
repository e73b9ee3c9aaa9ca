#include "platform/macos/NativeDisplays.h"

#include "platform/macos/DisplayRules.h"
#include "platform/macos/SystemFunction.h"

#include <QGuiApplication>
#include <QScreen>

#include <CoreGraphics/CoreGraphics.h>
#include <IOKit/graphics/IOGraphicsLib.h>

namespace {

QString nameOfScreenAt(QPoint corner)
{
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->geometry().topLeft() == corner)
            return screen->name();
    }
    return {};
}

// The name in the user's language; empty where the display has no such port, as on Apple silicon.
QString nameFromPort(CGDirectDisplayID display)
{
    const auto portOf = systemFunction<io_service_t(CGDirectDisplayID)>("CGDisplayIOServicePort");
    const io_service_t port = portOf ? portOf(display) : 0;
    if (port == 0)
        return {};
    CFDictionaryRef description = IODisplayCreateInfoDictionary(port, kIODisplayOnlyPreferredName);
    NSDictionary* info = CFBridgingRelease(description);
    NSDictionary<NSString*, NSString*>* names = info[@kDisplayProductName];
    return QString::fromNSString(names.allValues.firstObject);
}

ScreenFacts factsOf(NSScreen* screen, CGFloat firstHeight)
{
    ScreenFacts facts;
    NSNumber* number = screen.deviceDescription[@"NSScreenNumber"];
    facts.id = number.intValue;
    const NSRect f = screen.frame;
    facts.frame = {f.origin.x, f.origin.y, f.size.width, f.size.height};
    facts.scale = screen.backingScaleFactor;
    const ZRServerRect onServer = flippedDown(facts.frame, firstHeight);
    facts.name = nameOfScreenAt({int(onServer.x), int(onServer.y)});
    facts.productName = nameFromPort(number.unsignedIntValue);
    if (facts.productName.isEmpty())
        facts.productName = QString::fromNSString(screen.localizedName);
    return facts;
}

std::vector<ScreenFacts> readScreens()
{
    std::vector<ScreenFacts> facts;
    NSArray<NSScreen*>* screens = NSScreen.screens;
    for (NSScreen* screen in screens)
        facts.push_back(factsOf(screen, screens.firstObject.frame.size.height));
    return facts;
}

}

NativeDisplays::NativeDisplays()
{
    m_observer = [NSNotificationCenter.defaultCenter
        addObserverForName:NSApplicationDidChangeScreenParametersNotification
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification*) { markStale(); }];
    begin();
}

NativeDisplays::~NativeDisplays()
{
    [NSNotificationCenter.defaultCenter removeObserver:m_observer];
}

std::optional<std::vector<DisplayRecord>> NativeDisplays::read() const
{
    return arrangedDisplays(readScreens());
}

std::optional<QPoint> NativeDisplays::pointer() const
{
    CGEventRef event = CGEventCreate(nullptr);
    if (!event)
        return std::nullopt;
    const CGPoint location = CGEventGetLocation(event);
    CFRelease(event);
    return pixelAt(all(), location.x, location.y);
}
