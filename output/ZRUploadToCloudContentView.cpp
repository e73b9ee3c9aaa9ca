#include "output/ZRUploadToCloudContentView.h"

#include "customui/Images.h"
#include "customui/ZRHoverButton.h"
#include "settings/AppSettings.h"

#include <QGraphicsOpacityEffect>

namespace {

constexpr QSize kSize(480, 372); // points, as all below
constexpr int kMargin = 20;
constexpr QRect kPreview(kMargin, 16, 440, 212);
constexpr QRect kTitleField(kMargin, 240, 440, 30);
constexpr int kRowY = 282;
constexpr int kRowHeight = 30;
constexpr int kGap = 4;
constexpr int kAfterSwitch = 20;
constexpr QSize kSwitch(40, 22);
constexpr int kKnob = 18;
constexpr int kKnobInset = 2;
constexpr int kHelp = 24;
constexpr int kButtonY = 324;
constexpr int kButtonHeight = 32;
constexpr int kSmallestButton = 110;
constexpr int kSwitchMs = 200;
const QColor kInk(31, 41, 55);
const QColor kSoftInk(92, 105, 123);

QLabel* makeLabel(QWidget* parent, const QColor& ink)
{
    auto* label = new QLabel(parent);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, ink);
    label->setPalette(palette);
    return label;
}

QLabel* makePicture(QWidget* parent, const char16_t* name, QSize size)
{
    auto* label = new QLabel(parent);
    label->setPixmap(iconNamed(QString::fromUtf16(name)).pixmap(size, label->devicePixelRatioF()));
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->resize(size);
    return label;
}

void setOpacity(QWidget& widget, double opacity)
{
    auto* effect = static_cast<QGraphicsOpacityEffect*>(widget.graphicsEffect());
    if (!effect)
        widget.setGraphicsEffect(effect = new QGraphicsOpacityEffect(&widget));
    effect->setOpacity(opacity);
}

// Places a widget in the row and gives where the next one begins.
int placed(QWidget& widget, int x, QSize size, int gap)
{
    widget.setGeometry(x, kRowY + (kRowHeight - size.height()) / 2, size.width(), size.height());
    return x + size.width() + gap;
}

}

std::unique_ptr<ZRUploadToCloudContentView> ZRUploadToCloudContentView::loadFromNibNamed()
{
    std::unique_ptr<ZRUploadToCloudContentView> view(new ZRUploadToCloudContentView);
    view->awakeFromNib();
    return view;
}

ZRUploadToCloudContentView::ZRUploadToCloudContentView()
    : mNoticeLabel(makeLabel(this, kSoftInk))
    , mTitleTextField(new QLineEdit(this))
    , mPasswordLabel(makeLabel(this, kInk))
    , mPasswordTextField(new QLineEdit(this))
    , mScreenshotImage(new QLabel(this))
    , mLabelAuthority(makeLabel(this, kInk))
    , mBtnHelp(new ZRHoverButton(this))
    , mBtnUpload(new ZRHoverButton(this))
    , mSwitchBtnAuthorty(new ZRHoverButton(this))
    , mImagePublicBg(makePicture(mSwitchBtnAuthorty, u"formPublic", kSwitch))
    , mImagePrivateBg(makePicture(mSwitchBtnAuthorty, u"formPrivate", kSwitch))
    , mBtnAuthortyKnob(makePicture(mSwitchBtnAuthorty, u"formKnob", {kKnob, kKnob}))
    , mLabelAuthortyYes(makeLabel(this, kSoftInk))
    , mLabelAuthortyNo(makeLabel(this, kSoftInk))
{
    resize(kSize);
}

void ZRUploadToCloudContentView::awakeFromNib()
{
    mBtnUpload->setTitleColor(Qt::white);
    mBtnUpload->setBackgroundColor(QColor(42, 123, 244));
    mBtnUpload->setHoverBackgroundColor(QColor(30, 109, 228));
    mBtnUpload->setDownBackgroundColor(QColor(19, 94, 207));
    mBtnHelp->setImage(QStringLiteral("pop-upload-help-normal"));
    mBtnHelp->setHoverImage(QStringLiteral("pop-upload-help-hover"));
    mBtnHelp->setDownImage(QStringLiteral("pop-upload-help-down"));
    mPasswordTextField->setEchoMode(QLineEdit::Password);
    mScreenshotImage->setAlignment(Qt::AlignCenter);
    mScreenshotImage->setStyleSheet(
        QStringLiteral("background: white; border: 1px solid rgb(208,221,238); border-radius: 4px;"));
    for (QLineEdit* field : {mTitleTextField, mPasswordTextField}) {
        connect(field, &QLineEdit::returnPressed, this, [this] { sureUploadToImage(); });
        field->setStyleSheet(
            QStringLiteral("QLineEdit { background: white; color: rgb(31,41,55); padding: 0 8px;"
                           " border: 1px solid rgb(208,221,238); border-radius: 4px; }"
                           "QLineEdit:focus { border-color: rgb(42,123,244); }"));
    }
    mBtnUpload->onAction = [this] { sureUploadToImage(); };
    mSwitchBtnAuthorty->onAction = [this] { actionForSwithAuthority(); };
    m_switching.setDuration(kSwitchMs);
    connect(&m_switching, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& part) { showPrivacy(part.toDouble()); });
    setFocusProxy(mTitleTextField);
    setTabOrder(mTitleTextField, mSwitchBtnAuthorty);
    setTabOrder(mSwitchBtnAuthorty, mBtnHelp);
    setTabOrder(mBtnHelp, mPasswordTextField);
    setTabOrder(mPasswordTextField, mBtnUpload);
    updateAuthorityEnable(false, false);
    changeText();
}

void ZRUploadToCloudContentView::changeText()
{
    mLabelAuthority->setText(AppSettings::getXMLValueForKeywords(u"Upload:Public"));
    mLabelAuthortyYes->setText(AppSettings::getXMLValueForKeywords(u"Lumora:Upload:Yes"));
    mLabelAuthortyNo->setText(AppSettings::getXMLValueForKeywords(u"Lumora:Upload:No"));
    mPasswordLabel->setText(AppSettings::getXMLValueForKeywords(u"Upload:OptionalPassword"));
    mBtnHelp->QWidget::setToolTip(AppSettings::getXMLValueForKeywords(u"Upload:ImagePublicTip"));
    mBtnUpload->setTitle(AppSettings::getXMLValueForKeywords(u"Button:Upload"));
    mTitleTextField->setPlaceholderText(AppSettings::getXMLValueForKeywords(u"Upload:Saysth"));
    mPasswordTextField->setPlaceholderText(AppSettings::getXMLValueForKeywords(u"Upload:EnterPassword"));
    mSwitchBtnAuthorty->setAccessibleName(mLabelAuthority->text());
    mBtnHelp->setAccessibleName(mBtnHelp->toolTip());
    layOut();
}

void ZRUploadToCloudContentView::layOut()
{
    mScreenshotImage->setGeometry(kPreview);
    mTitleTextField->setGeometry(kTitleField);
    const QSize answer = mLabelAuthortyYes->sizeHint().expandedTo(mLabelAuthortyNo->sizeHint());
    int x = placed(*mLabelAuthority, kMargin, mLabelAuthority->sizeHint(), kGap);
    x = placed(*mSwitchBtnAuthorty, x, kSwitch, kGap);
    placed(*mLabelAuthortyYes, x, answer, kGap);
    x = placed(*mLabelAuthortyNo, x, answer, kGap);
    x = placed(*mBtnHelp, x, {kHelp, kHelp}, kAfterSwitch);
    x = placed(*mPasswordLabel, x, mPasswordLabel->sizeHint(), kGap);
    placed(*mPasswordTextField, x, {width() - kMargin - x, kRowHeight}, kGap);
    const int buttonWidth = qMax(mBtnUpload->sizeHint().width(), kSmallestButton);
    mBtnUpload->setGeometry(width() - kMargin - buttonWidth, kButtonY, buttonWidth, kButtonHeight);
    mNoticeLabel->setGeometry(kMargin, kButtonY, width() - 2 * kMargin - buttonWidth, kButtonHeight);
}

void ZRUploadToCloudContentView::setImage(const QImage& preview)
{
    const double scale = devicePixelRatioF();
    const QSize room = (kPreview.size() - QSize(8, 8)) * scale;
    const bool fits = preview.width() <= room.width() && preview.height() <= room.height();
    QPixmap picture = QPixmap::fromImage(
        fits ? preview : preview.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    picture.setDevicePixelRatio(scale);
    mScreenshotImage->setPixmap(picture);
}

QString ZRUploadToCloudContentView::password() const
{
    return _Authorty ? mPasswordTextField->text() : QString();
}

void ZRUploadToCloudContentView::updateAuthorityEnable(bool isPrivate, bool animation)
{
    _Authorty = isPrivate;
    mPasswordLabel->setVisible(isPrivate);
    mPasswordTextField->setVisible(isPrivate);
    m_switching.stop();
    if (!animation)
        return showPrivacy(isPrivate ? 1 : 0);
    m_switching.setStartValue(isPrivate ? 0.0 : 1.0);
    m_switching.setEndValue(isPrivate ? 1.0 : 0.0);
    m_switching.start();
}

void ZRUploadToCloudContentView::showPrivacy(double part)
{
    for (QLabel* label : {mImagePublicBg, mLabelAuthortyYes})
        setOpacity(*label, 1 - part);
    for (QLabel* label : {mImagePrivateBg, mLabelAuthortyNo})
        setOpacity(*label, part);
    const int way = kSwitch.width() - kKnob - 2 * kKnobInset;
    mBtnAuthortyKnob->move(kKnobInset + qRound(way * (1 - part)), kKnobInset);
}

void ZRUploadToCloudContentView::sureUploadToImage() const
{
    if (m_sureAction)
        m_sureAction();
}
