#include "editor/ToolTipsBackView.h"

#include <QPainter>

namespace {

constexpr double kRadius = 4; // points
const QColor kBox(251, 251, 200);
const QColor kRim(214, 208, 150); // shows the box on white

}

void ToolTipsBackView::setAlpha(double alpha)
{
    m_alpha = alpha;
    update();
}

void ToolTipsBackView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_alpha);
    painter.setPen(kRim);
    painter.setBrush(kBox);
    const QRectF box(0, kTopMargin, width() - kRightMargin, height() - kTopMargin);
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}
