#pragma once

#include "editor/ZRBasicCustomView.h"

// A rectangle.
class ZRSquare : public ZRBasicCustomView {
public:
    ZRSquare();

    ZRRect sizeToFit() override;
    bool isClickOn(ZRPoint point) override;

protected:
    const char* className() const override { return "ZRSquare"; }
};
