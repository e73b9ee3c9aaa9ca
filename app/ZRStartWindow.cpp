#include "app/ZRStartWindow.h"

#include "app/ShortcutRules.h"
#include "app/StartWindowDelegate.h"
#include "capture/ToolScreen.h"
#include "customui/Images.h"
#include "geometry/ZRServerRect.h"
#include "settings/AppSettings.h"
#include "ui_ZRStartWindow.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QScreen>
#include <QTimer>

#include <utility>

namespace {

constexpr int kFadeInMs = 300;
constexpr int kStayMs = 3000; // from the beginning of the fading in
constexpr int kShrinkMs = 500;
constexpr double kCorner = 12; // points
constexpr int kLogoSize = 64;  // points
constexpr int kNameSize = 22;  // points, as the sizes below
constexpr int kTipsSize = 14;
constexpr int kHotKeySize = 18;
constexpr QColor kTop(34, 62, 118);
constexpr QColor kBottom(14, 28, 60);
constexpr QColor kEdge(86, 128, 200);

// Points of a page at 72 an inch are the window's own.
QString span(const QString& text, int size, const char* color, const char* style)
{
    return QStringLiteral("<span style=\"font-family:Verdana,'DejaVu Sans'; font-size:%1px; color:%2; "
                          "font-style:%3\">%4</span>")
        .arg(size)
        .arg(QLatin1String(color), QLatin1String(style), text);
}

QString tips()
{
    const QString marker = QStringLiteral("[#Hotkey#]");
    const QString hotKey = ShortcutRules::capitalized(AppSettings::regionScreenShotHotKey()).toHtmlEscaped();
    const QString tips = AppSettings::getXMLValueForKeywords(u"Comm:StartHotKeyTips").toHtmlEscaped();
    const QString shown = span(hotKey, kHotKeySize, "#fffc00", "italic");
    return span(QString(tips).replace(marker, shown), kTipsSize, "#bffeff", "normal");
}

QPainterPath outline(const QRectF& rect)
{
    QPainterPath path;
    path.addRoundedRect(rect, kCorner, kCorner);
    return path;
}

}

std::unique_ptr<ZRStartWindow> ZRStartWindow::defaultStartWindow()
{
    return std::unique_ptr<ZRStartWindow>(new ZRStartWindow);
}

ZRStartWindow::ZRStartWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_ui(std::make_unique<Ui::ZRStartWindow>())
{
    m_ui->setupUi(this);
    setWindowTitle(AppSettings::AppIdentify());
    QFont name = font();
    name.setPixelSize(kNameSize);
    name.setWeight(QFont::DemiBold);
    m_ui->mAppNameLabel->setFont(name);
    m_ui->mLogo->setPixmap(
        imageNamed(QStringLiteral("Icon256x256"), QSizeF(kLogoSize, kLogoSize), devicePixelRatioF()));
    connect(m_ui->mCheckShowAgainBtn, &QCheckBox::clicked, this,
        [this](bool isDeclined) { checkShowStartWindowAgain(isDeclined); });
    changeText();
}

ZRStartWindow::~ZRStartWindow() = default;

void ZRStartWindow::changeText()
{
    m_ui->mCheckShowAgainBtn->setText(AppSettings::getXMLValueForKeywords(u"Comm:DontShowAgain"));
    m_ui->mAppNameLabel->setText(AppSettings::ClientName());
    m_ui->mTipsTextView->setText(tips());
    adjustSize();
}

void ZRStartWindow::start()
{
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
    setWindowOpacity(0);
    show();
    raise();
    activateWindow();
    QTimer::singleShot(kStayMs, this, [this] { stop(); });
    fadeTo(1, kFadeInMs);
}

void ZRStartWindow::stop()
{
    if (m_isStopping)
        return;
    m_isStopping = true;
    if (m_delegate)
        m_delegate->windowWillStop(*this);
    shrink();
    fadeTo(0, kShrinkMs);
    QTimer::singleShot(kShrinkMs, this, [this] { closeWindow(); });
}

void ZRStartWindow::fadeTo(double opacity, int milliseconds)
{
    auto* fading = new QPropertyAnimation(this, "windowOpacity", this);
    fading->setEndValue(opacity);
    fading->setDuration(milliseconds);
    fading->start(QAbstractAnimation::DeleteWhenStopped);
}

// A picture of the window shrinks in its place: its parts would not.
void ZRStartWindow::shrink()
{
    const auto first = ToolScreen::getFirstScreen();
    if (mEndRect.isEmpty() || !first)
        return;
    m_picture = grab();
    delete layout();
    for (QWidget* child : findChildren<QWidget*>())
        child->hide();
    setMinimumSize(1, 1);
    const ZRServerRect end = flippedDown(mEndRect, first->frame.height);
    auto* shrinking = new QPropertyAnimation(this, "geometry", this);
    shrinking->setEndValue(QRectF(end.x, end.y, end.width, end.height).toRect());
    shrinking->setDuration(kShrinkMs);
    shrinking->setEasingCurve(QEasingCurve::InOutQuad);
    shrinking->start(QAbstractAnimation::DeleteWhenStopped);
}

void ZRStartWindow::closeWindow()
{
    close();
}

void ZRStartWindow::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    m_isStopping = true;
    if (!std::exchange(m_isClosed, true) && m_delegate)
        m_delegate->windowWillClose();
}

void ZRStartWindow::checkShowStartWindowAgain(bool isDeclined)
{
    AppSettings::setNeedShowStartWindowAgain(!isDeclined);
}

void ZRStartWindow::resizeEvent(QResizeEvent*)
{
    QBitmap mask(size());
    mask.clear();
    QPainter painter(&mask);
    painter.fillPath(outline(QRectF(rect())), Qt::color1);
    painter.end();
    setMask(mask);
}

void ZRStartWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_picture.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), m_picture);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(0, 0, 0, height());
    ground.setColorAt(0, kTop);
    ground.setColorAt(1, kBottom);
    painter.fillRect(rect(), ground);
    painter.setPen(kEdge);
    painter.drawPath(outline(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5)));
}
