#include "platform/macos/NativeLoginItem.h"

#include <CoreServices/CoreServices.h>
#include <ServiceManagement/ServiceManagement.h>

namespace {

class API_AVAILABLE(macos(13.0)) AppService final : public LoginService {
public:
    Status status() const override
    {
        switch (SMAppService.mainAppService.status) {
        case SMAppServiceStatusEnabled:
            return Status::Present;
        case SMAppServiceStatusRequiresApproval:
            return Status::SwitchedOff;
        case SMAppServiceStatusNotRegistered:
        case SMAppServiceStatusNotFound:
            break;
        }
        return Status::Absent;
    }
    bool add() override { return [SMAppService.mainAppService registerAndReturnError:nil]; }
    bool remove() override { return [SMAppService.mainAppService unregisterAndReturnError:nil]; }
};

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

// The session's list, which the user edits by removing: nothing in it is switched off.
class SharedList final : public LoginService {
public:
    SharedList() { m_list = LSSharedFileListCreate(nullptr, kLSSharedFileListSessionLoginItems, nullptr); }
    ~SharedList() override
    {
        if (m_list)
            CFRelease(m_list);
    }
    SharedList(const SharedList&) = delete;
    SharedList& operator=(const SharedList&) = delete;

    Status status() const override { return ownItems().count > 0 ? Status::Present : Status::Absent; }
    bool add() override
    {
        if (!m_list)
            return false;
        NSURL* program = NSBundle.mainBundle.bundleURL;
        LSSharedFileListItemRef item = LSSharedFileListInsertItemURL(m_list, kLSSharedFileListItemLast,
            nullptr, nullptr, (__bridge CFURLRef)program, nullptr, nullptr);
        if (!item)
            return false;
        CFRelease(item);
        return true;
    }
    bool remove() override
    {
        bool isEveryOneGone = true;
        for (id item in ownItems())
            isEveryOneGone &=
                LSSharedFileListItemRemove(m_list, (__bridge LSSharedFileListItemRef)item) == noErr;
        return isEveryOneGone;
    }

private:
    // Every entry that leads into this bundle.
    NSArray* ownItems() const
    {
        NSMutableArray* own = [NSMutableArray array];
        if (!m_list)
            return own;
        NSArray* all = CFBridgingRelease(LSSharedFileListCopySnapshot(m_list, nullptr));
        for (id item in all) {
            CFURLRef found =
                LSSharedFileListItemCopyResolvedURL((__bridge LSSharedFileListItemRef)item, 0, nullptr);
            NSURL* url = CFBridgingRelease(found);
            if ([url.path hasPrefix:NSBundle.mainBundle.bundlePath])
                [own addObject:item];
        }
        return own;
    }

    LSSharedFileListRef m_list = nullptr;
};

#pragma clang diagnostic pop

std::unique_ptr<LoginService> makeLoginService()
{
    if (@available(macOS 13.0, *))
        return std::make_unique<AppService>();
    return std::make_unique<SharedList>();
}

}

NativeLoginItem::NativeLoginItem()
    : m_service(makeLoginService())
{
}
