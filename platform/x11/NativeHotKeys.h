#pragma once

#include "platform/HotKeys.h"
#include "platform/x11/XModifiers.h"

#include <QTimer>

#include <array>
#include <map>
#include <optional>

// Hot keys as passive grabs on the root window.
class NativeHotKeys final : public HotKeys, private XEventListener {
public:
    explicit NativeHotKeys(std::shared_ptr<XConnection> connection);
    ~NativeHotKeys() override;

    QString registerHotKey(quint32 id, quint32 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;

private:
    struct Combination {
        xcb_keycode_t key = 0;
        uint16_t modifiers = 0;
        friend bool operator==(Combination, Combination) = default;
    };
    struct Binding {
        quint32 keyCode = 0;
        quint32 modifiers = 0;
        std::optional<Combination> grabbed; // while live
        QString refusal;                    // otherwise
    };
    // A key that has fired and is not known to be up again.
    struct HeldKey {
        xcb_keycode_t key = 0;
        xcb_timestamp_t released = 0; // of a release seen after the last press; 0 for none
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    bool isRepeat(const xcb_key_press_event_t& event);
    void forgetKeysThatAreUp();

    void bindAgain();
    void ungrabMoved();
    void bind(Binding& binding);
    std::optional<Combination> combinationOf(const Binding& binding) const;
    bool isTaken(Combination combination) const;
    bool grab(Combination combination) const;
    void ungrab(Combination combination) const;
    std::array<uint16_t, 4> lockVariants(uint16_t modifiers) const;

    std::shared_ptr<XConnection> m_x;
    XModifiers m_modifiers;
    std::map<quint32, Binding> m_bindings;
    std::vector<HeldKey> m_held;
    QTimer m_keymapSettled; // the last of a burst of keyboard changes has passed
    QTimer m_heldCheck;     // runs only while a key is held
    int m_xkbEvents = 0;    // the type of its events
};
