#include "editor/ZRFontSelectView.h"

#include "customui/ImageView.h"
#include "customui/ZRColorView.h"
#include "editor/ZRCustomPopUpMenu.h"

namespace {

constexpr int kRightMargin = 5; // points, to what stands beside the button
constexpr int kArrowArea = 20;  // points at the right of the panel
constexpr int kArrowSide = 12;
constexpr int kLineMargin = 4; // points above and below the separator
const QColor kLineColor = QColor::fromRgbF(0.7568627450980392F, 0.8235294117647058F, 0.8784313725490196F);
const QColor kHighlight(206, 224, 255);

}

const QStringList& ZRFontSelectView::fontSizes()
{
    static const QStringList sizes = [] {
        QStringList texts;
        for (const int points : {9, 10, 11, 12, 13, 14, 18, 24, 36, 48, 64, 72, 96})
            texts << QString::number(points);
        return texts;
    }();
    return sizes;
}

ZRFontSelectView::ZRFontSelectView(QWidget* parent)
    : ZRHoverButton(parent)
    , _lineView(new ZRColorView(this))
    , m_arrow(new ImageView(QStringLiteral("dropDown-normal"), this))
{
    _lineView->setColor(kLineColor);
    _lineView->setAttribute(Qt::WA_TransparentForMouseEvents);
    setBackgroundColor(Qt::white);
    setHoverBackgroundColor(kHighlight);
    setDownBackgroundColor(kHighlight);
}

ZRFontSelectView::~ZRFontSelectView()
{
    if (_popMenu)
        _popMenu->release();
}

ZRCustomPopUpMenu& ZRFontSelectView::popMenu()
{
    if (!_popMenu) {
        _popMenu = new ZRCustomPopUpMenu(width(), fontSizes(), this);
        _popMenu->setMouseDown(true);
        _popMenu->sendSelectedValue = [this](const QString& value) { sendSelectedValue(value); };
    }
    return *_popMenu;
}

void ZRFontSelectView::closeMenu()
{
    if (_popMenu)
        _popMenu->pullsDown();
}

void ZRFontSelectView::sendSelectedValue(const QString& value)
{
    showFontSize(value);
    sendAction();
}

void ZRFontSelectView::showFontSize(const QString& points)
{
    m_fontSize = points.toInt();
    setTitle(QStringLiteral("%1 pt").arg(points));
}

void ZRFontSelectView::click()
{
    setMouseInside(true);
    popMenu().popUpWithRelativeView(*this);
}

QRect ZRFontSelectView::panelRect() const
{
    return rect().adjusted(0, 0, -kRightMargin, 0);
}

QRect ZRFontSelectView::titleRect() const
{
    return panelRect().adjusted(0, 0, -kArrowArea, 0);
}

void ZRFontSelectView::resizeEvent(QResizeEvent*)
{
    const int arrowX = titleRect().width();
    _lineView->setGeometry(arrowX, kLineMargin, 1, height() - 2 * kLineMargin);
    m_arrow->setGeometry(
        arrowX + (kArrowArea - kArrowSide) / 2, (height() - kArrowSide) / 2, kArrowSide, kArrowSide);
}
