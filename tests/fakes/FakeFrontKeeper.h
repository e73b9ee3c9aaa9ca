#pragma once

#include "platform/FrontKeeper.h"

// Tells whether a window is kept in front.
class FakeFrontKeeper final : public FrontKeeper {
public:
    void keepInFront(const QWindow&) override { isKeeping = true; }
    void release() override { isKeeping = false; }

    bool isKeeping = false;
};
