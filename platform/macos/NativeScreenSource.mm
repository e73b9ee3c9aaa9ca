#include "platform/macos/NativeScreenSource.h"

#include "platform/macos/CaptureRules.h"
#include "platform/macos/ScreenPicture.h"
#include "platform/macos/SystemFunction.h"

#include <mutex>

#include <CoreGraphics/CoreGraphics.h>
#include <ScreenCaptureKit/ScreenCaptureKit.h>

namespace {

using Answer = ScreenSource::Answer;
using OnAnswer = std::function<void(Answer)>;

static_assert(CaptureRules::kOnScreenOnly == kCGWindowListOptionOnScreenOnly);
static_assert(CaptureRules::kBestResolution == kCGWindowImageBestResolution);
static_assert(CaptureRules::kBgra == kCVPixelFormatType_32BGRA);
static_assert(CaptureRules::kDeclined == SCStreamErrorUserDeclined);

Answer failure(NSError* error)
{
    return {{}, CaptureRules::reasonOf(error.code, QString::fromNSString(error.localizedDescription))};
}

Answer answerOf(CGImageRef image, NSError* error)
{
    return image ? Answer{pictureOf(image),
                       QStringLiteral("there is not enough memory for the display's pixels")}
                 : failure(error);
}

class PermittedSource : public ScreenSource {
public:
    bool isPermitted() const override { return CGPreflightScreenCaptureAccess(); }
    bool askForPermission() override { return CGRequestScreenCaptureAccess(); }
};

class OlderCall final : public PermittedSource {
public:
    void prepare() override { }
    void read(const DisplayRecord& display, OnAnswer onAnswer) override
    {
        using Create = CGImageRef(CGRect, CGWindowListOption, CGWindowID, CGWindowImageOption);
        static const auto create = systemFunction<Create>("CGWindowListCreateImage");
        CGImageRef image =
            create ? create(CGDisplayBounds(CGDirectDisplayID(display.id)), kCGWindowListOptionOnScreenOnly,
                         kCGNullWindowID, kCGWindowImageBestResolution)
                   : nullptr;
        onAnswer(answerOf(image, nil));
        CGImageRelease(image);
    }
};

// The displays that the system lets be read. It takes its time to list them, so the list is kept, and
// forgotten when a reading fails. Shared with calls of the system that may end at any time.
class API_AVAILABLE(macos(14.0)) KnownScreens {
public:
    SCDisplay* find(int displayId)
    {
        const std::lock_guard lock(m_mutex);
        for (SCDisplay* display in m_displays) {
            if (display.displayID == CGDirectDisplayID(displayId))
                return display;
        }
        return nil;
    }
    void keep(NSArray<SCDisplay*>* displays)
    {
        const std::lock_guard lock(m_mutex);
        m_displays = displays;
    }

private:
    std::mutex m_mutex;
    NSArray<SCDisplay*>* m_displays = nil;
};

class API_AVAILABLE(macos(14.0)) CaptureKit final : public PermittedSource {
public:
    void prepare() override
    {
        list([](NSError*) {});
    }
    void read(const DisplayRecord& display, OnAnswer onAnswer) override
    {
        if (SCDisplay* screen = m_known->find(display.id)) {
            capture(m_known, screen, display.pixels.size(), onAnswer);
            return;
        }
        list([known = m_known, display, onAnswer](NSError* error) {
            if (SCDisplay* screen = known->find(display.id))
                capture(known, screen, display.pixels.size(), onAnswer);
            else
                onAnswer(error ? failure(error)
                               : Answer{{}, QStringLiteral("the system does not list the display")});
        });
    }

private:
    using Known = std::shared_ptr<KnownScreens>;

    void list(std::function<void(NSError*)> then)
    {
        const Known known = m_known;
        [SCShareableContent
            getShareableContentExcludingDesktopWindows:NO
                                   onScreenWindowsOnly:YES
                                     completionHandler:^(SCShareableContent* content, NSError* error) {
                                         known->keep(content.displays);
                                         then(error);
                                     }];
    }
    static void capture(const Known& sharedScreens, SCDisplay* screen, QSize pixels, OnAnswer onAnswer)
    {
        const Known known = sharedScreens; // a reference would not live as long as the block
        SCContentFilter* filter = [[SCContentFilter alloc] initWithDisplay:screen excludingWindows:@[]];
        [SCScreenshotManager captureImageWithFilter:filter
                                      configuration:configurationFor(pixels)
                                  completionHandler:^(CGImageRef image, NSError* error) {
                                      if (!image)
                                          known->keep(nil);
                                      onAnswer(answerOf(image, error));
                                  }];
    }
    // The whole display, so there is no source rectangle; device pixels, as the scale of its record says.
    static SCStreamConfiguration* configurationFor(QSize pixels)
    {
        SCStreamConfiguration* configuration = [[SCStreamConfiguration alloc] init];
        configuration.width = size_t(pixels.width());
        configuration.height = size_t(pixels.height());
        configuration.pixelFormat = kCVPixelFormatType_32BGRA;
        configuration.captureResolution = SCCaptureResolutionBest;
        configuration.showsCursor = NO;
        return configuration;
    }

    const Known m_known = std::make_shared<KnownScreens>();
};

}

std::unique_ptr<ScreenSource> makeScreenSource()
{
    if (@available(macOS 14.0, *))
        return std::make_unique<CaptureKit>();
    return std::make_unique<OlderCall>();
}
