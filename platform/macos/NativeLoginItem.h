#pragma once

#include "platform/LoginItem.h"
#include "platform/macos/LoginRules.h"

#include <memory>

// The system's service for login items; below macOS 13 the session's shared list.
class NativeLoginItem final : public LoginItem {
public:
    NativeLoginItem();

    bool isRegistered() const override { return LoginRules::isRegistered(*m_service); }
    bool registerItem() override { return LoginRules::add(*m_service); }
    bool unregisterItem() override { return LoginRules::remove(*m_service); }

private:
    const std::unique_ptr<LoginService> m_service;
};
