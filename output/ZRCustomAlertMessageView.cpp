#include "output/ZRCustomAlertMessageView.h"

#include "commonutils/CommUtils.h"

#include <QKeyEvent>

namespace {

constexpr int kFontSize = 13; // points
const QColor kInk(31, 41, 55);

}

ZRCustomAlertMessageView::ZRCustomAlertMessageView(QWidget* parent)
    : QTextBrowser(parent)
{
    QFont font = this->font();
    font.setPixelSize(kFontSize); // Qt's pixels are points of the display here
    setFont(font);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, kInk);
    setPalette(palette);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(0);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this,
        [](const QUrl& url) { CommUtils::OpenURL(url.toString(QUrl::FullyEncoded)); });
}

void ZRCustomAlertMessageView::keyPressEvent(QKeyEvent* event)
{
    const bool isOfAlert = event->key() == Qt::Key_Escape ||
                           (event->key() == Qt::Key_Return && !textCursor().charFormat().isAnchor());
    if (isOfAlert)
        event->ignore();
    else
        QTextBrowser::keyPressEvent(event);
}
