#pragma once

#include "editor/ZRRandomLine.h"

// A highlighter's stroke. Kept: its rectangle is that of a stroke of its line width, although it is drawn
// twice as wide.
class ZRHightlight : public ZRRandomLine {
public:
    ZRHightlight();

protected:
    const char* className() const override { return "ZRHightlight"; }
};
