#include "platform/DesktopFacts.h"

#include "platform/x11/XSharedSegment.h"

namespace {

constexpr size_t kTrial = 4096; // bytes

bool hasOwner(const XConnection& x, const char* selection)
{
    const auto cookie = xcb_get_selection_owner(x.get(), x.atom(selection));
    const XReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(x.get(), cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}

}

DesktopFacts desktopFacts()
{
    const auto x = XConnection::ofApplication();
    if (!x->isAlive())
        return {};
    return {x->screen()->root_depth, XSharedSegment::create(x, kTrial) != nullptr,
        hasOwner(*x, "CLIPBOARD_MANAGER")};
}
