#include "editor/ZRToolTips.h"

#include "editor/ToolTipsBackView.h"

#include <QCursor>
#include <QLabel>
#include <QPointer>

namespace {

constexpr int kDelayMs = 250;
constexpr int kFirstDelayMs = 500; // of a tooltip that is not showing
constexpr int kFadeInMs = 100;
constexpr int kFadeOutMs = 750;
constexpr int kScreenMargin = 5;    // points from the window's right edge
constexpr QPoint kLabelInset(8, 4); // points inside the box
constexpr int kTextSize = 12;       // points
const QColor kTextColor(51, 51, 40);

struct Shared {
    QPointer<ZRToolTips> window;
    QString text;
};

Shared& shared()
{
    static Shared state;
    return state;
}

}

ZRToolTips* ZRToolTips::sharedTooltipsWindow()
{
    return shared().window;
}

void ZRToolTips::setToolTips(const QString& text)
{
    shared().text = text;
}

void ZRToolTips::showToolTips(const QWidget& over)
{
    hiddenToolTips();
    auto* tooltip = new ZRToolTips(over.window());
    shared().window = tooltip;
    tooltip->m_delay.start(tooltip->isShowing() ? kDelayMs : kFirstDelayMs);
}

void ZRToolTips::hiddenToolTips()
{
    if (ZRToolTips* tooltip = shared().window)
        tooltip->_hiddenTooltips();
}

void ZRToolTips::cancelShowToolTips()
{
    if (ZRToolTips* tooltip = shared().window; tooltip && !tooltip->isShowing())
        tooltip->setIsNeedCancelShow(true);
}

ZRToolTips::ZRToolTips(QWidget* window)
    : View(window)
    , mBackView(new ToolTipsBackView(this))
    , mTooltipsLabel(new QLabel(this))
{
    hide();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont textFont = font();
    textFont.setPixelSize(kTextSize);
    mTooltipsLabel->setFont(textFont);
    mTooltipsLabel->setTextFormat(Qt::PlainText);
    setAlpha(1);
    m_delay.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, [this] { _showTooltips(); });
    connect(&m_fade, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& value) { setAlpha(value.toDouble()); });
}

bool ZRToolTips::isShowing() const
{
    return mBackView->alpha() != 0;
}

void ZRToolTips::_showTooltips()
{
    if (bIsHidden)
        return;
    _setTooltips(shared().text);
    fadeTo(1, kFadeInMs);
}

// The box grows from the pointer to the right and upwards, and stays on the window.
void ZRToolTips::_setTooltips(const QString& text)
{
    mTooltipsLabel->setText(text);
    mTooltipsLabel->adjustSize();
    const QSize label = mTooltipsLabel->size();
    resize(label.width() + 2 * kLabelInset.x() + ToolTipsBackView::kRightMargin,
        label.height() + 2 * kLabelInset.y() + ToolTipsBackView::kTopMargin);
    mBackView->setGeometry(rect());
    mTooltipsLabel->move(kLabelInset + QPoint(0, ToolTipsBackView::kTopMargin));
    QPoint origin = parentWidget()->mapFromGlobal(QCursor::pos()) - QPoint(0, height());
    if (origin.x() + width() > parentWidget()->width())
        origin.setX(parentWidget()->width() - kScreenMargin - width());
    origin.setY(qMax(origin.y(), -ToolTipsBackView::kTopMargin));
    move(origin);
    show();
    raise();
}

void ZRToolTips::_hiddenTooltips()
{
    bIsHidden = true;
    m_delay.stop();
    if (shared().window == this)
        shared().window = nullptr;
    if (!isVisible())
        return deleteLater();
    connect(&m_fade, &QVariantAnimation::finished, this, &QObject::deleteLater);
    fadeTo(0, kFadeOutMs);
}

// By hand: an effect of Qt's would repaint all of the window.
void ZRToolTips::setAlpha(double alpha)
{
    mBackView->setAlpha(alpha);
    QColor ink = kTextColor;
    ink.setAlphaF(float(alpha));
    QPalette palette = mTooltipsLabel->palette();
    palette.setColor(QPalette::WindowText, ink);
    mTooltipsLabel->setPalette(palette);
}

void ZRToolTips::fadeTo(double alpha, int milliseconds)
{
    m_fade.stop();
    m_fade.setStartValue(mBackView->alpha());
    m_fade.setEndValue(alpha);
    m_fade.setDuration(milliseconds);
    m_fade.start();
}
