#pragma once

#include "editor/ZRBasicCustomView.h"

// An ellipse in its rectangle. Kept: its handles can be taken only while it is selected.
class ZREillpse : public ZRBasicCustomView {
public:
    ZREillpse();

    ZRRect sizeToFit() override;
    bool isClickOn(ZRPoint point) override;

protected:
    const char* className() const override { return "ZREillpse"; }
};
