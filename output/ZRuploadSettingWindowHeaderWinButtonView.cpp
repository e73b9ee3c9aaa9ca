#include "output/ZRuploadSettingWindowHeaderWinButtonView.h"

#include "customui/ZRHoverButton.h"
#include "settings/AppSettings.h"

namespace {

constexpr int kButtonSize = 20; // points

}

ZRuploadSettingWindowHeaderWinButtonView::ZRuploadSettingWindowHeaderWinButtonView(QWidget* parent)
    : QWidget(parent)
    , winCloseButton(new ZRHoverButton(this))
{
    winCloseButton->setImage(QStringLiteral("pop-upload-close-normal"));
    winCloseButton->setHoverImage(QStringLiteral("pop-upload-close-hover"));
    winCloseButton->setDownImage(QStringLiteral("pop-upload-close-down"));
    winCloseButton->setImageSize(QSizeF(kButtonSize, kButtonSize));
    winCloseButton->setAccessibleName(AppSettings::getXMLValueForKeywords(u"Button:Cancel"));
    winCloseButton->onAction = [this] { window()->close(); };
}

void ZRuploadSettingWindowHeaderWinButtonView::resizeEvent(QResizeEvent*)
{
    winCloseButton->setGeometry(
        (width() - kButtonSize) / 2, (height() - kButtonSize) / 2, kButtonSize, kButtonSize);
}

void ZRuploadSettingWindowHeaderWinButtonView::enterEvent(QEnterEvent*)
{
    winCloseButton->setMouseInside(true);
}

void ZRuploadSettingWindowHeaderWinButtonView::leaveEvent(QEvent*)
{
    winCloseButton->setMouseInside(false);
}
