#pragma once

#include "platform/LoginItem.h"

class FakeLoginItem final : public LoginItem {
public:
    bool isRegistered() const override { return registered; }
    bool registerItem() override
    {
        registered = registered || isWritable;
        return isWritable;
    }
    bool unregisterItem() override
    {
        registered = registered && !isWritable;
        return !registered;
    }

    bool registered = false;
    bool isWritable = true;
};
