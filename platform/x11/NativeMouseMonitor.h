#pragma once

#include "platform/MouseMonitor.h"
#include "platform/x11/XConnection.h"

#include <optional>

// Listens to the raw events of the input extension: they come to the root however the pointer is grabbed.
class NativeMouseMonitor final : public MouseMonitor, private XEventListener {
public:
    explicit NativeMouseMonitor(std::shared_ptr<XConnection> connection);
    ~NativeMouseMonitor() override;

    bool start() override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void select(uint32_t events) const;
    void readButtons();
    std::optional<Action> buttonMoved(uint32_t button, bool isDown);
    std::optional<Action> pointerMoved() const;

    std::shared_ptr<XConnection> m_x;
    int m_extension = 0;        // the extension's number while it runs
    uint32_t m_buttonsDown = 0; // a bit a button
};
