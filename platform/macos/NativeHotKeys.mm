#include "platform/macos/NativeHotKeys.h"

#include "platform/macos/HotKeyRules.h"

namespace {

constexpr OSType kSignature = 'LuMo';

static_assert(HotKeyRules::kExists == eventHotKeyExistsErr);
static_assert(HotKeyRules::kInvalid == eventHotKeyInvalidErr);
static_assert(HotKeyRules::kRefused == eventInternalErr);
static_assert(cmdKey == 256 && shiftKey == 512 && optionKey == 2048 && controlKey == 4096);

HotKeyRules::SystemKey systemKey(NSDictionary<NSString*, NSNumber*>* entry)
{
    return {entry[(__bridge NSString*)kHISymbolicHotKeyCode].unsignedIntValue,
        entry[(__bridge NSString*)kHISymbolicHotKeyModifiers].unsignedIntValue,
        bool(entry[(__bridge NSString*)kHISymbolicHotKeyEnabled].boolValue)};
}

std::vector<HotKeyRules::SystemKey> systemKeys()
{
    std::vector<HotKeyRules::SystemKey> keys;
    CFArrayRef copied = nullptr;
    if (CopySymbolicHotKeys(&copied) != noErr)
        return keys;
    NSArray<NSDictionary*>* entries = CFBridgingRelease(copied);
    for (NSDictionary* entry in entries)
        keys.push_back(systemKey(entry));
    return keys;
}

}

NativeHotKeys::NativeHotKeys()
{
    const EventTypeSpec kPressed{kEventClassKeyboard, kEventHotKeyPressed};
    InstallEventHandler(GetEventDispatcherTarget(), pressed, 1, &kPressed, this, &m_handler);
    m_observer = [NSDistributedNotificationCenter.defaultCenter
        addObserverForName:(__bridge NSString*)kTISNotifySelectedKeyboardInputSourceChanged
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification*) { bindAgain(); }];
}

NativeHotKeys::~NativeHotKeys()
{
    [NSDistributedNotificationCenter.defaultCenter removeObserver:m_observer];
    for (auto& [id, binding] : m_bindings)
        unbind(binding);
    if (m_handler)
        RemoveEventHandler(m_handler);
}

QString NativeHotKeys::registerHotKey(quint32 id, quint32 keyCode, quint32 modifiers)
{
    unregisterHotKey(id);
    Binding& binding = m_bindings[id];
    binding.keyCode = keyCode;
    binding.modifiers = modifiers;
    bind(id, binding);
    return binding.refusal;
}

void NativeHotKeys::unregisterHotKey(quint32 id)
{
    const auto it = m_bindings.find(id);
    if (it == m_bindings.end())
        return;
    unbind(it->second);
    m_bindings.erase(it);
}

OSStatus NativeHotKeys::pressed(EventHandlerCallRef, EventRef event, void* self)
{
    EventHotKeyID key{};
    const OSStatus status = GetEventParameter(
        event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof key, nullptr, &key);
    if (status != noErr || key.signature != kSignature)
        return eventNotHandledErr;
    const auto& keys = *static_cast<NativeHotKeys*>(self);
    if (keys.onPressed)
        keys.onPressed(key.id);
    return noErr;
}

void NativeHotKeys::bind(quint32 id, Binding& binding)
{
    const bool isSystems = HotKeyRules::isSystemKey(systemKeys(), binding.keyCode, binding.modifiers);
    const OSStatus status = isSystems
                                ? OSStatus(eventHotKeyExistsErr)
                                : RegisterEventHotKey(binding.keyCode, binding.modifiers, {kSignature, id},
                                      GetEventDispatcherTarget(), kEventHotKeyNoOptions, &binding.registered);
    binding.refusal = HotKeyRules::refusalOf(status);
}

void NativeHotKeys::unbind(Binding& binding)
{
    if (binding.registered)
        UnregisterEventHotKey(binding.registered);
    binding.registered = nullptr;
}

// A position stays where it is in every layout; only what was refused may be free now.
void NativeHotKeys::bindAgain()
{
    std::map<quint32, QString> changes;
    for (auto& [id, binding] : m_bindings) {
        if (binding.registered)
            continue;
        const QString before = binding.refusal;
        bind(id, binding);
        if (binding.refusal != before)
            changes[id] = binding.refusal;
    }
    for (const auto& [id, reason] : changes) {
        if (onStateChange)
            onStateChange(id, reason);
    }
}
