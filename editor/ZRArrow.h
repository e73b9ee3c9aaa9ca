#pragma once

#include "editor/EndPoints.h"

// An arrow from the first to the last drag point.
class ZRArrow : public EndPoints<ZRBasicCustomView> {
public:
    ZRArrow();

protected:
    const char* className() const override { return "ZRArrow"; }
};
