#include "output/ZRScreenshotUploadingView.h"

#include "commonutils/CommUtils.h"
#include "customui/ZRHoverButton.h"
#include "output/AlertRules.h"
#include "output/NotificationRules.h"
#include "settings/AppSettings.h"

#include <QFileInfo>
#include <QTextBrowser>
#include <QtMath>

namespace {

constexpr int kMargin = 14; // points, as all below
constexpr int kButtonSize = 20;
constexpr int kButtonInset = 8;
constexpr int kTextSize = 12;
constexpr int kLineHeight = 18;
const QColor kInk(31, 41, 55);
const QColor kSoftInk(92, 105, 123);

QFont textFont()
{
    QFont font;
    font.setPixelSize(kTextSize); // Qt's pixels are points of the display here
    return font;
}

QPalette textPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::WindowText, kInk);
    palette.setColor(QPalette::Text, kInk);
    return palette;
}

QPalette softPalette()
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, kSoftInk);
    return palette;
}

// Presses beside a link are the notice's.
QTextBrowser* makeFinishedText(QWidget* parent)
{
    auto* text = new QTextBrowser(parent);
    text->setFont(textFont());
    text->setPalette(textPalette());
    text->setFrameShape(QFrame::NoFrame);
    text->document()->setDocumentMargin(0);
    text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    text->setOpenLinks(false);
    QObject::connect(text, &QTextBrowser::anchorClicked, text,
        [](const QUrl& link) { CommUtils::OpenURL(link.toString(QUrl::FullyEncoded)); });
    return text;
}

}

std::unique_ptr<ZRScreenshotUploadingView> ZRScreenshotUploadingView::LoadFromNib()
{
    return std::unique_ptr<ZRScreenshotUploadingView>(new ZRScreenshotUploadingView);
}

ZRScreenshotUploadingView::ZRScreenshotUploadingView()
    : mUploadingView(new QWidget(this))
    , mFinishedView(new QWidget(this))
    , mFinishedText(makeFinishedText(mFinishedView))
    , m_finishedNote(new QLabel(mFinishedView))
    , mProgressView(new ZRUploadingProrgessView(mUploadingView))
    , m_fileName(new QLabel(mUploadingView))
    , m_closeButton(new ZRHoverButton(this))
{
    resize(int(NotificationRules::kWidth), int(NotificationRules::kHeight));
    const QRect content = rect().adjusted(kMargin, 0, -kButtonSize - 2 * kButtonInset, 0);
    mUploadingView->setGeometry(content);
    mFinishedView->setGeometry(content);
    m_fileName->setGeometry(0, kMargin, content.width(), kLineHeight);
    m_fileName->setFont(textFont());
    m_fileName->setPalette(textPalette());
    mProgressView->setGeometry(0, kMargin + kLineHeight, content.width(), kLineHeight);
    mFinishedText->resize(content.width(), kLineHeight);
    m_finishedNote->resize(content.width(), kLineHeight);
    m_finishedNote->setAlignment(Qt::AlignCenter);
    m_finishedNote->setFont(textFont());
    m_finishedNote->setPalette(softPalette());
    m_closeButton->setGeometry(width() - kButtonSize - kButtonInset, kButtonInset, kButtonSize, kButtonSize);
    m_closeButton->setImage(QStringLiteral("pop-upload-close-normal"));
    m_closeButton->setHoverImage(QStringLiteral("pop-upload-close-hover"));
    m_closeButton->setDownImage(QStringLiteral("pop-upload-close-down"));
    m_closeButton->setImageSize(QSizeF(kButtonSize, kButtonSize));
    m_closeButton->setAccessibleName(AppSettings::getXMLValueForKeywords(u"Button:Cancel"));
    m_closeButton->onAction = [this] { actionForCancel(); };
    setIsFinished(false);
}

void ZRScreenshotUploadingView::setIsFinished(bool isFinished, const QString& withUrlLink)
{
    m_isFinished = isFinished;
    mUploadingView->setVisible(!isFinished);
    mFinishedView->setVisible(isFinished);
    if (!isFinished)
        return;
    const QString completed = AppSettings::getXMLValueForKeywords(u"Upload:UploadCompleted");
    const QString learnMore = AppSettings::getXMLValueForKeywords(u"Upload:LearnMore");
    const QString text = withUrlLink.isEmpty() ? completed : completed + QLatin1Char(' ') + learnMore;
    mFinishedText->setHtml(
        AlertRules::addURLs(text, {withUrlLink}, {withUrlLink.isEmpty() ? QString() : learnMore}));
    mFinishedText->setAlignment(Qt::AlignHCenter);
    arrangeFinished();
}

QString ZRScreenshotUploadingView::finishedText() const
{
    return mFinishedText->toPlainText();
}

void ZRScreenshotUploadingView::setFinishedNote(const QString& note)
{
    m_finishedNote->setText(note);
    arrangeFinished();
}

// The text in as many lines as its language needs, the note below it, both in the middle.
void ZRScreenshotUploadingView::arrangeFinished()
{
    QTextDocument& text = *mFinishedText->document();
    text.setTextWidth(mFinishedText->width());
    const int textHeight = qCeil(text.size().height());
    const int noteHeight = m_finishedNote->text().isEmpty() ? 0 : kLineHeight;
    const int top = (height() - textHeight - noteHeight) / 2;
    mFinishedText->setGeometry(0, top, mFinishedText->width(), textHeight);
    m_finishedNote->move(0, top + textHeight);
}

void ZRScreenshotUploadingView::setUploadFilePath(const QString& path)
{
    m_uploadFilePath = path;
    m_fileName->setText(m_fileName->fontMetrics().elidedText(
        QFileInfo(path).fileName(), Qt::ElideMiddle, m_fileName->width()));
}

void ZRScreenshotUploadingView::actionForCancel() const
{
    if (m_cancelAction)
        m_cancelAction();
}

// The button lights up as soon as the pointer is over the view.
void ZRScreenshotUploadingView::enterEvent(QEnterEvent*)
{
    m_closeButton->setMouseInside(true);
}

void ZRScreenshotUploadingView::leaveEvent(QEvent*)
{
    m_closeButton->setMouseInside(false);
}
