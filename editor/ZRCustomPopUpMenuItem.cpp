#include "editor/ZRCustomPopUpMenuItem.h"

#include <QFontDatabase>
#include <QPainter>

namespace {

constexpr int kFontSize = 14; // points
constexpr int kTextX = 10;    // points
constexpr int kTextUp = 2;    // points above the middle
const QColor kHighlight(193, 210, 224);

}

ZRCustomPopUpMenuItem::ZRCustomPopUpMenuItem(const QString& title, QWidget* parent)
    : View(parent)
    , mTitle(title)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(title);
}

QFont ZRCustomPopUpMenuItem::sharedFont()
{
    static const QFont font = [] {
        QFont systemFont = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        systemFont.setPixelSize(kFontSize); // Qt's pixels are points of the display here
        return systemFont;
    }();
    return font;
}

void ZRCustomPopUpMenuItem::setHover(bool isHover)
{
    if (isHover == bIsHover)
        return;
    bIsHover = isHover;
    update();
}

void ZRCustomPopUpMenuItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (bIsHover)
        painter.fillRect(rect(), kHighlight);
    painter.setFont(sharedFont());
    painter.setPen(Qt::black);
    painter.drawText(rect().adjusted(kTextX, -kTextUp, 0, -kTextUp), Qt::AlignVCenter, mTitle);
}
