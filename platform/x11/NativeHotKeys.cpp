#include "platform/x11/NativeHotKeys.h"

#include "platform/x11/KeyPositions.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kKeymapSettleMs = 50;
constexpr int kHeldCheckMs = 50;

// The keyboard extension's events share one type and tell themselves apart in their second byte.
constexpr int kXkbNewKeyboard = 0;
constexpr int kXkbMapChanged = 1;

int xkbEventType(const XConnection& x)
{
    constexpr char kName[] = "XKEYBOARD";
    const auto cookie = xcb_query_extension(x.get(), sizeof kName - 1, kName);
    XReply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(x.get(), cookie, nullptr));
    return reply && reply->present ? reply->first_event : 0;
}

}

NativeHotKeys::NativeHotKeys(std::shared_ptr<XConnection> connection)
    : m_x(std::move(connection))
    , m_modifiers(XModifiers::read(*m_x))
    , m_xkbEvents(xkbEventType(*m_x))
{
    m_keymapSettled.setSingleShot(true);
    m_keymapSettled.setInterval(kKeymapSettleMs);
    QObject::connect(&m_keymapSettled, &QTimer::timeout, &m_keymapSettled, [this] { bindAgain(); });
    m_heldCheck.setInterval(kHeldCheckMs);
    QObject::connect(&m_heldCheck, &QTimer::timeout, &m_heldCheck, [this] { forgetKeysThatAreUp(); });
    m_x->addListener(this);
}

NativeHotKeys::~NativeHotKeys()
{
    m_x->removeListener(this);
    while (!m_bindings.empty())
        unregisterHotKey(m_bindings.begin()->first);
}

QString NativeHotKeys::registerHotKey(quint32 id, quint32 keyCode, quint32 modifiers)
{
    unregisterHotKey(id);
    Binding binding{keyCode, modifiers, {}, {}};
    bind(binding);
    return m_bindings.emplace(id, binding).first->second.refusal;
}

void NativeHotKeys::unregisterHotKey(quint32 id)
{
    const auto it = m_bindings.find(id);
    if (it == m_bindings.end())
        return;
    if (it->second.grabbed)
        ungrab(*it->second.grabbed);
    m_bindings.erase(it);
}

void NativeHotKeys::handleEvent(const xcb_generic_event_t& event)
{
    const int type = typeOf(event);
    if (type == XCB_KEY_PRESS)
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    else if (type == XCB_KEY_RELEASE)
        keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
    else if (type == XCB_MAPPING_NOTIFY ||
             (m_xkbEvents && type == m_xkbEvents &&
                 (event.pad0 == kXkbNewKeyboard || event.pad0 == kXkbMapChanged)))
        m_keymapSettled.start();
}

void NativeHotKeys::keyPressed(const xcb_key_press_event_t& event)
{
    if (isRepeat(event) || event.event != m_x->root())
        return;
    const Combination pressed{event.detail, m_modifiers.withoutLocks(event.state)};
    const auto it = std::find_if(m_bindings.begin(), m_bindings.end(),
        [&](const auto& entry) { return entry.second.grabbed == pressed; });
    if (it == m_bindings.end())
        return;
    std::erase_if(m_held, [&](const HeldKey& held) { return held.key == event.detail; });
    m_held.push_back({event.detail, 0});
    m_heldCheck.start();
    if (onPressed)
        onPressed(it->first);
}

// Seen for every window of ours: during a capture the release goes to the overlay.
void NativeHotKeys::keyReleased(const xcb_key_release_event_t& event)
{
    for (HeldKey& held : m_held) {
        if (held.key == event.detail)
            held.released = event.time;
    }
}

// The server repeats a held key as a release and a press of one time. A press of a held key without any
// release is a repeat too: that release went to another program.
bool NativeHotKeys::isRepeat(const xcb_key_press_event_t& event)
{
    const auto held = std::find_if(m_held.begin(), m_held.end(),
        [&](const HeldKey& candidate) { return candidate.key == event.detail; });
    if (held == m_held.end())
        return false;
    const xcb_timestamp_t released = std::exchange(held->released, 0);
    return released == 0 || released == event.time;
}

// A release that goes to another program is not told: ask.
void NativeHotKeys::forgetKeysThatAreUp()
{
    std::erase_if(m_held, [this](const HeldKey& held) { return !m_x->isKeyDown(held.key); });
    if (m_held.empty())
        m_heldCheck.stop();
}

void NativeHotKeys::bindAgain()
{
    m_modifiers = XModifiers::read(*m_x);
    ungrabMoved();
    std::map<quint32, QString> changes;
    for (auto& [id, binding] : m_bindings) {
        if (binding.grabbed)
            continue;
        const QString before = binding.refusal;
        bind(binding);
        if (binding.refusal != before)
            changes[id] = binding.refusal;
    }
    for (const auto& [id, reason] : changes) {
        if (onStateChange)
            onStateChange(id, reason);
    }
}

// All of them before any is bound again, so that two may swap their places.
void NativeHotKeys::ungrabMoved()
{
    for (auto& [id, binding] : m_bindings) {
        if (binding.grabbed && binding.grabbed != combinationOf(binding)) {
            ungrab(*binding.grabbed);
            binding.grabbed.reset();
        }
    }
}

void NativeHotKeys::bind(Binding& binding)
{
    const std::optional<Combination> wanted = combinationOf(binding);
    if (!wanted)
        binding.refusal = HotKeyRefusal::kNoKey;
    else if (isTaken(*wanted))
        binding.refusal = HotKeyRefusal::kUsedTwice;
    else if (!grab(*wanted))
        binding.refusal = HotKeyRefusal::kTaken;
    else
        binding = {binding.keyCode, binding.modifiers, wanted, {}};
}

std::optional<NativeHotKeys::Combination> NativeHotKeys::combinationOf(const Binding& binding) const
{
    const auto key = keycodeAtPosition(binding.keyCode);
    if (!key)
        return std::nullopt;
    return Combination{*key, m_modifiers.maskFor(binding.modifiers)};
}

// By another binding of ours; the server would not refuse it.
bool NativeHotKeys::isTaken(Combination combination) const
{
    return std::any_of(m_bindings.begin(), m_bindings.end(),
        [&](const auto& entry) { return entry.second.grabbed == combination; });
}

// With every state of the locks, or not at all.
bool NativeHotKeys::grab(Combination combination) const
{
    std::vector<xcb_void_cookie_t> requests;
    for (uint16_t modifiers : lockVariants(combination.modifiers))
        requests.push_back(xcb_grab_key_checked(m_x->get(), true, m_x->root(), modifiers, combination.key,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool isGranted = m_x->isAlive();
    for (xcb_void_cookie_t request : requests) {
        const XReply<xcb_generic_error_t> error(xcb_request_check(m_x->get(), request));
        isGranted = isGranted && !error;
    }
    if (!isGranted)
        ungrab(combination);
    return isGranted;
}

void NativeHotKeys::ungrab(Combination combination) const
{
    for (uint16_t modifiers : lockVariants(combination.modifiers))
        m_x->discard(xcb_ungrab_key_checked(m_x->get(), combination.key, m_x->root(), modifiers));
    xcb_flush(m_x->get());
}

// Repeats where there is no Num Lock; a second grab of one's own is granted.
std::array<uint16_t, 4> NativeHotKeys::lockVariants(uint16_t modifiers) const
{
    const uint16_t num = m_modifiers.numLock;
    const uint16_t caps = XCB_MOD_MASK_LOCK;
    return {
        modifiers, uint16_t(modifiers | caps), uint16_t(modifiers | num), uint16_t(modifiers | caps | num)};
}
