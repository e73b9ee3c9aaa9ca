#include "output/NoticePanel.h"

#include <QPainter>
#include <QWidget>

namespace {

constexpr double kCornerRadius = 4; // points
const QColor kLine(208, 221, 238);

}

void paintNoticePanel(QWidget& widget, const QColor& background)
{
    QPainter painter(&widget);
    const double hair = 1 / widget.devicePixelRatioF();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kLine, hair));
    painter.setBrush(background);
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(hair / 2, hair / 2, -hair / 2, -hair / 2),
        kCornerRadius, kCornerRadius);
}
