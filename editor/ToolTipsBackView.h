#pragma once

#include "customui/View.h"

// Draws the yellow box of a tooltip, in the bottom-left corner of the tooltip that holds it.
class ToolTipsBackView : public View {
public:
    // Points between the box and the right and upper edge of the tooltip.
    static constexpr int kRightMargin = 6;
    static constexpr int kTopMargin = 22;

    using View::View;

    double alpha() const { return m_alpha; } // 0 to 1
    void setAlpha(double alpha);

private:
    void paintEvent(QPaintEvent* event) override;

    double m_alpha = 1;
};
