#pragma once

#include "editor/EndPoints.h"
#include "editor/ZRRandomLine.h"

// A straight line from the first to the last drag point.
class ZRLine : public EndPoints<ZRRandomLine> {
public:
    ZRLine();

protected:
    const char* className() const override { return "ZRLine"; }
};
