#include "app/AboutView.h"

#include "commonutils/CommUtils.h"
#include "commonutils/LinkText.h"
#include "customui/Images.h"
#include "settings/AppSettings.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kMargin = 28;
constexpr int kIconSize = 88;
constexpr int kTextX = kMargin + kIconSize + 24;
constexpr int kSmallestWidth = 537;
constexpr int kAfterName = 15; // between the name and the window's edge
constexpr int kLineY = kMargin + kIconSize + 24;
constexpr double kNameSize = 1.8; // of the ordinary letters
const QColor kLine(208, 221, 238);
const QColor kInk(31, 41, 55);
const QColor kSoftInk(92, 105, 123);

QFont nameFont(QFont font)
{
    font.setPointSizeF(font.pointSizeF() * kNameSize);
    font.setWeight(QFont::DemiBold);
    return font;
}

void setInk(QWidget& label, const QColor& ink)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Link, QColor(42, 123, 244));
    label.setPalette(palette);
}

}

AboutTexts AboutTexts::current()
{
    return {AppSettings::getXMLValueForKeywords(u"Comm:About"), AppSettings::ClientName(),
        AppSettings::ClientVersion(), AppSettings::ClientCopyright()};
}

AboutView::AboutView()
    : mAppNameLabel(new QLabel(this))
    , mAppVersionLabel(new QLabel(this))
    , mAppCopyrightLabel(new QLabel(this))
{
    mAppNameLabel->setFont(nameFont(font()));
    mAppCopyrightLabel->setWordWrap(true);
    mAppCopyrightLabel->setTextFormat(Qt::RichText);
    for (QLabel* label : {mAppVersionLabel, mAppCopyrightLabel})
        label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    setInk(*mAppNameLabel, kInk);
    setInk(*mAppVersionLabel, kSoftInk);
    setInk(*mAppCopyrightLabel, kInk);
    connect(mAppCopyrightLabel, &QLabel::linkActivated, this,
        [](const QString& link) { CommUtils::OpenURL(link); });
}

void AboutView::changeText(const AboutTexts& texts)
{
    mAppNameLabel->setText(texts.name);
    mAppVersionLabel->setText(texts.version);
    mAppCopyrightLabel->setText(htmlWithLinks(texts.copyright));
    layOut();
}

void AboutView::layOut()
{
    mAppNameLabel->adjustSize();
    mAppVersionLabel->adjustSize();
    const int texts = mAppNameLabel->height() + 4 + mAppVersionLabel->height();
    mAppNameLabel->move(kTextX, kMargin + (kIconSize - texts) / 2);
    mAppVersionLabel->move(kTextX, mAppNameLabel->geometry().bottom() + 5);
    const int nameEnd = mAppNameLabel->x() + mAppNameLabel->width();
    const int width = std::max(nameEnd + kAfterName, kSmallestWidth);
    const int textWidth = width - 2 * kMargin;
    const int textHeight = mAppCopyrightLabel->heightForWidth(textWidth);
    mAppCopyrightLabel->setGeometry(kMargin, kLineY + 20, textWidth, textHeight);
    resize(width, mAppCopyrightLabel->geometry().bottom() + 1 + kMargin);
}

void AboutView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(kMargin, kLineY, width() - 2 * kMargin, 1, kLine);
    const QSizeF icon(kIconSize, kIconSize);
    painter.drawPixmap(
        QPoint(kMargin, kMargin), imageNamed(QStringLiteral("Icon256x256"), icon, devicePixelRatioF()));
}
