#include "app/CountdownPanel.h"

#include "capture/ToolScreen.h"
#include "output/NoticePanel.h"
#include "settings/AppSettings.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include <algorithm>

namespace {

// Points.
constexpr int kHeight = 72;
constexpr int kMargin = 16;
constexpr int kRing = 44; // diameter
constexpr int kStroke = 3;
constexpr int kCorner = 4;
constexpr int kFromCorner = 24;
constexpr int kSecondsSize = 18;
constexpr int kTitleSize = 14;
constexpr int kHintSize = 12;

constexpr QColor kGround(240, 248, 255);
constexpr QColor kAccent(42, 123, 244);
constexpr QColor kTrack(206, 224, 255);
constexpr QColor kInk(32, 43, 58);
constexpr QColor kSoftInk(92, 106, 125);

// Of the panel's ground.
QRegion rounded(const QRect& rect)
{
    QPainterPath path;
    path.addRoundedRect(rect, kCorner, kCorner);
    return QRegion(path.toFillPolygon().toPolygon());
}

QFont fontOf(int pixels, QFont::Weight weight)
{
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QFont titleFont()
{
    return fontOf(kTitleSize, QFont::Bold);
}

QFont hintFont()
{
    return fontOf(kHintSize, QFont::Normal);
}

void drawText(QPainter& painter, const QRect& rect, const QString& text, const QFont& font, QColor ink)
{
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter, text);
}

// The part of the seconds that is left, from the top clockwise.
void drawRing(QPainter& painter, const QRectF& circle, double part)
{
    constexpr int kTurn = 360 * 16;
    painter.setPen(QPen(kTrack, kStroke));
    painter.drawEllipse(circle);
    painter.setPen(QPen(kAccent, kStroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, kTurn / 4, int(-kTurn * part));
}

}

CountdownPanel::CountdownPanel()
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint |
                           Qt::Tool | Qt::WindowDoesNotAcceptFocus)
    , m_title(AppSettings::getXMLValueForKeywords(u"Lumora:Capture:Countdown"))
    , m_hint(QStringLiteral("Esc \u00b7 %1").arg(AppSettings::getXMLValueForKeywords(u"Button:Cancel")))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(QStringLiteral("Lumora Countdown"));
    setAccessibleName(m_title);
    setPalette(QPalette(Qt::white));
    setCursor(Qt::PointingHandCursor);
    setFixedSize(kMargin + kRing + kMargin + textWidth() + kMargin + kMargin / 2, kHeight);
    setMask(rounded(rect()));
}

int CountdownPanel::textWidth() const
{
    return std::max(QFontMetrics(titleFont()).horizontalAdvance(m_title),
        QFontMetrics(hintFont()).horizontalAdvance(m_hint));
}

void CountdownPanel::showOn(const DisplayRecord& display)
{
    if (const QScreen* screen = ToolScreen::qtScreen(display)) {
        const QRect room = screen->availableGeometry().adjusted(0, 0, -kFromCorner, -kFromCorner);
        move(room.bottomRight() - rect().bottomRight());
    }
    show();
    raise();
}

void CountdownPanel::showSeconds(int left)
{
    m_left = left;
    m_whole = std::max(m_whole, left);
    update();
}

void CountdownPanel::paintEvent(QPaintEvent*)
{
    paintNoticePanel(*this, kGround);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect ring(kMargin, (kHeight - kRing) / 2, kRing, kRing);
    drawRing(painter, QRectF(ring).adjusted(1.5, 1.5, -1.5, -1.5), double(m_left) / m_whole);
    painter.setFont(fontOf(kSecondsSize, QFont::Bold));
    painter.setPen(kInk);
    painter.drawText(ring, Qt::AlignCenter, QString::number(m_left));
    const QRect text(ring.right() + 1 + kMargin, ring.top(), textWidth(), kRing / 2);
    drawText(painter, text, m_title, titleFont(), kInk);
    drawText(painter, text.translated(0, kRing / 2), m_hint, hintFont(), kSoftInk);
}

void CountdownPanel::mousePressEvent(QMouseEvent*)
{
    if (onClick)
        onClick();
}
