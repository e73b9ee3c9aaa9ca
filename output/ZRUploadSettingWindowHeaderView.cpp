#include "output/ZRUploadSettingWindowHeaderView.h"

#include "output/ZRuploadSettingWindowHeaderWinButtonView.h"
#include "settings/AppSettings.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace {

const QColor kGround(240, 246, 254);
const QColor kLine(208, 221, 238);
const QColor kInk(31, 41, 55);
const QString kWebsite = QStringLiteral("Kestrel");

}

ZRUploadSettingWindowHeaderView::ZRUploadSettingWindowHeaderView(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_buttons(new ZRuploadSettingWindowHeaderWinButtonView(this))
{
    QPalette palette = m_title->palette();
    palette.setColor(QPalette::WindowText, kInk);
    m_title->setPalette(palette);
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setAttribute(Qt::WA_TransparentForMouseEvents);
    changeText();
}

void ZRUploadSettingWindowHeaderView::changeText()
{
    m_title->setText(
        AppSettings::getXMLValueForKeywords(u"Upload:Title").replace(QLatin1String("[#Website#]"), kWebsite));
    window()->setWindowTitle(m_title->text());
}

void ZRUploadSettingWindowHeaderView::resizeEvent(QResizeEvent*)
{
    m_title->setGeometry(rect());
    m_buttons->setGeometry(width() - height(), 0, height(), height());
}

void ZRUploadSettingWindowHeaderView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kGround);
    painter.fillRect(0, height() - 1, width(), 1, kLine);
}

void ZRUploadSettingWindowHeaderView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        window()->windowHandle()->startSystemMove();
}
