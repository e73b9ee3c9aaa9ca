#include "output/ZRBasicLocalNotification.h"

#include "customui/Images.h"
#include "output/NoticePanel.h"
#include "output/NotificationRules.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

constexpr int kIconSize = 40; // points, as all below
constexpr int kIconX = 12;
constexpr int kAfterIcon = 10;
constexpr int kAfterText = 5; // what the text's width leaves of the notice, beside the gap after the icon
constexpr int kBetween = 2;
constexpr int kEdge = 6; // what stays free above and below the text
constexpr int kTitleSize = 14;
constexpr int kLongTitleSize = 12; // of one that takes two lines above a message
constexpr int kMessageSize = 10;
constexpr int kLines = 2; // of the title, and of the message where there is room
constexpr QChar kLineEnd(u'\n');
const QColor kInk(31, 41, 55);
const QColor kSoftInk(92, 105, 123);

QFont helvetica(int size, QFont::Weight weight)
{
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(size); // Qt's pixels are points of the display here
    font.setWeight(weight);
    return font;
}

void dress(QLabel& label, const QFont& font, const QColor& ink)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, ink);
    label.setPalette(palette);
    label.setFont(font);
    label.setTextFormat(Qt::PlainText);
}

void setLines(QLabel& label, const QString& text, int width, int count)
{
    const QStringList lines =
        NotificationRules::linesCutInMiddle(text.simplified(), label.font(), width, count);
    label.setText(lines.join(kLineEnd));
}

}

ZRBasicLocalNotification::ZRBasicLocalNotification(
    const QString& title, const QString& message, const QString& image)
    : mIconView(new QLabel(this))
    , mTitleField(new QLabel(this))
    , mMessageField(new QLabel(this))
{
    resize(int(NotificationRules::kWidth), int(NotificationRules::kHeight));
    setAccessibleName(title);
    setAccessibleDescription(message);
    dress(*mTitleField, helvetica(kTitleSize, QFont::Bold), kInk);
    dress(*mMessageField, helvetica(kMessageSize, QFont::Normal), kSoftInk);
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QPixmap icon =
        imageNamed(image, QSizeF(kIconSize, kIconSize), screen ? screen->devicePixelRatio() : 1);
    mIconView->setPixmap(icon);
    const int iconWidth = icon.isNull() ? 0 : kIconSize;
    mIconView->setGeometry(kIconX, (height() - kIconSize) / 2, iconWidth, kIconSize);
    layOut(title, message, kIconX + (iconWidth ? iconWidth + kAfterIcon : 0));
}

void ZRBasicLocalNotification::layOut(const QString& title, const QString& message, int textX)
{
    const int textWidth = width() - textX - kAfterText;
    setLines(*mTitleField, title, textWidth, kLines);
    if (!message.isEmpty() && mTitleField->text().contains(kLineEnd)) {
        dress(*mTitleField, helvetica(kLongTitleSize, QFont::Bold), kInk);
        setLines(*mTitleField, title, textWidth, kLines);
    }
    const int titleHeight = mTitleField->sizeHint().height();
    const int room = (height() - 2 * kEdge - titleHeight) / mMessageField->fontMetrics().lineSpacing();
    setLines(*mMessageField, message, textWidth, qBound(1, room, kLines));
    const int messageHeight = message.isEmpty() ? 0 : mMessageField->sizeHint().height();
    const int between = message.isEmpty() ? 0 : kBetween;
    const int y = (height() - titleHeight - between - messageHeight) / 2;
    mTitleField->setGeometry(textX, y, textWidth, titleHeight);
    mMessageField->setGeometry(textX, y + titleHeight + between, textWidth, messageHeight);
}

void ZRBasicLocalNotification::setBackgroundColor(const QColor& color)
{
    mBackColor = color;
    update();
}

void ZRBasicLocalNotification::setClickAction(std::function<void()> action, const QString& hint)
{
    m_clickAction = std::move(action);
    QWidget::setToolTip(hint);
    setCursor(Qt::PointingHandCursor);
}

void ZRBasicLocalNotification::click() const
{
    if (m_clickAction)
        m_clickAction();
}

void ZRBasicLocalNotification::paintEvent(QPaintEvent*)
{
    paintNoticePanel(*this, mBackColor);
}
