#include "output/ZRUploadingProrgessView.h"

#include <QPainter>
#include <QtMath>

namespace {

constexpr int kLabelWidth = 40; // points
constexpr int kBarHeight = 6;
constexpr double kTolerance = 1e-9; // of a percentage that is a sum of binary fractions
const QColor kRest(237, 229, 253);
const QColor kDone(42, 123, 244);
const QColor kSoftInk(92, 105, 123);

}

ZRUploadingProrgessView::ZRUploadingProrgessView(QWidget* parent)
    : QWidget(parent)
    , mLabelprogress(new QLabel(this))
{
    QPalette palette = mLabelprogress->palette();
    palette.setColor(QPalette::WindowText, kSoftInk);
    mLabelprogress->setPalette(palette);
    mLabelprogress->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setProgress(0);
}

void ZRUploadingProrgessView::setProgress(double progress)
{
    m_progress = qBound(0.0, progress, 1.0);
    mLabelprogress->setText(QString::number(int(m_progress * 100 + kTolerance)) + QLatin1Char('%'));
    update();
}

QRect ZRUploadingProrgessView::bar() const
{
    return {0, (height() - kBarHeight) / 2, width() - kLabelWidth, kBarHeight};
}

void ZRUploadingProrgessView::resizeEvent(QResizeEvent*)
{
    mLabelprogress->setGeometry(width() - kLabelWidth, 0, kLabelWidth, height());
}

void ZRUploadingProrgessView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF whole = bar();
    painter.fillRect(whole, kRest);
    painter.fillRect(QRectF(whole.topLeft(), QSizeF(whole.width() * m_progress, whole.height())), kDone);
}
