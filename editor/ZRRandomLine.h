#pragma once

#include "editor/ZRBasicCustomView.h"

// A freehand stroke. It moves with all its points and cannot be resized.
class ZRRandomLine : public ZRBasicCustomView {
public:
    ZRRandomLine();

    ZRRect sizeToFit() override;
    bool isClickOn(ZRPoint point) override;

protected:
    void moveBy(ZRPoint step) override;
    const char* className() const override { return "ZRRandomLine"; }
};
