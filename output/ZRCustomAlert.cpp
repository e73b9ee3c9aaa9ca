#include "output/ZRCustomAlert.h"

#include "commonutils/ModalSession.h"
#include "customui/Images.h"
#include "customui/ZRHoverButton.h"
#include "output/AlertRules.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include <deque>
#include <utility>

namespace {

constexpr int kMargin = 20; // points, as all below
constexpr int kWidth = 420;
constexpr int kImageSize = 48;
constexpr int kTextX = kMargin + kImageSize + 16;
constexpr int kTitleHeight = 20;
constexpr int kTitleSize = 14;
constexpr int kMessageY = kMargin + kTitleHeight + 8;
constexpr int kButtonHeight = 30;
constexpr int kButtonGap = 8;
constexpr int kSmallestButton = 88;
constexpr int kHeight = kMessageY + int(AlertRules::kMessageHeight) + 16 + kButtonHeight + kMargin;
const QColor kPanel(240, 248, 255);
const QColor kInk(31, 41, 55);

struct ButtonLook {
    QColor ground, hover, down, ink;
};
const ButtonLook kAccented{{42, 123, 244}, {30, 109, 228}, {19, 94, 207}, Qt::white};
const ButtonLook kPlain{{224, 235, 250}, {206, 224, 255}, {186, 208, 246}, kInk};

// Those that wait and, in front, the one that shows.
std::deque<std::unique_ptr<ZRCustomAlert>>& alerts()
{
    static std::deque<std::unique_ptr<ZRCustomAlert>> queue;
    return queue;
}

}

ZRCustomAlert::ZRCustomAlert()
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint)
    , m_title(new QLabel(this))
    , m_message(new ZRCustomAlertMessageView(this))
    , m_image(new QLabel(this))
    , m_btnDefault(makeButton(true, kDefault))
    , m_btnCancel(makeButton(false, kCancel))
    , m_btnOther(makeButton(false, kOther))
{
    QPalette palette(kPanel);
    palette.setColor(QPalette::WindowText, kInk);
    setPalette(palette);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(iconNamed(QStringLiteral("Icon256x256")));
    QFont font = m_title->font();
    font.setPixelSize(kTitleSize);
    font.setWeight(QFont::DemiBold);
    m_title->setFont(font);
    m_title->setPalette(palette);
    m_image->setPixmap(iconNamed(QStringLiteral("logo")).pixmap(QSize(kImageSize, kImageSize), devicePixelRatioF()));
    setFixedSize(kWidth, kHeight);
}

ZRCustomAlert::~ZRCustomAlert() = default;

ZRHoverButton* ZRCustomAlert::makeButton(bool isAccented, int code)
{
    const ButtonLook& look = isAccented ? kAccented : kPlain;
    auto* button = new ZRHoverButton(this);
    button->setBackgroundColor(look.ground);
    button->setHoverBackgroundColor(look.hover);
    button->setDownBackgroundColor(look.down);
    button->setTitleColor(look.ink);
    button->onAction = [this, code] { closeAlertWithRetunCode(code); };
    return button;
}

void ZRCustomAlert::updateMessage(const QString& message, const QVariantMap& withAttributes)
{
    m_message->setHtml(AlertRules::markedMessage(message, withAttributes));
    _updateTheWindowSize(message);
}

void ZRCustomAlert::_updateTheWindowSize(const QString& message)
{
    const double width = kWidth - kTextX - kMargin;
    const int growth = qRound(AlertRules::growthFor(message, m_message->font(), width));
    const QScreen* display = screen();
    const int most = display ? display->availableGeometry().height() * 4 / 5 : kHeight;
    setFixedSize(kWidth, qBound(kHeight, kHeight + growth, qMax(most, kHeight)));
    layOut();
}

void ZRCustomAlert::layOut()
{
    const int textWidth = width() - kTextX - kMargin;
    const int buttonY = height() - kMargin - kButtonHeight;
    m_image->setGeometry(kMargin, kMargin, kImageSize, kImageSize);
    m_title->setGeometry(kTextX, kMargin, textWidth, kTitleHeight);
    m_message->setGeometry(kTextX, kMessageY, textWidth, buttonY - 16 - kMessageY);
    int right = width() - kMargin;
    for (ZRHoverButton* button : {m_btnDefault, m_btnCancel, m_btnOther}) {
        button->setVisible(!button->title().isEmpty());
        const int buttonWidth = qMax(button->sizeHint().width(), kSmallestButton);
        button->setGeometry(right - buttonWidth, buttonY, buttonWidth, kButtonHeight);
        if (!button->title().isEmpty())
            right -= buttonWidth + kButtonGap;
    }
}

void ZRCustomAlert::run(std::unique_ptr<ZRCustomAlert> alert, std::function<void(int code)> answered)
{
    static const bool s_cleansUp = [] {
        qAddPostRoutine([] { alerts().clear(); }); // windows must not outlive the application object
        return true;
    }();
    Q_UNUSED(s_cleansUp)
    alert->m_answered = std::move(answered);
    alerts().push_back(std::move(alert));
    showNext();
}

ZRCustomAlert* ZRCustomAlert::current()
{
    return alerts().empty() ? nullptr : alerts().front().get();
}

void ZRCustomAlert::showNext()
{
    if (ZRCustomAlert* next = current(); next && !next->m_session)
        next->show();
}

void ZRCustomAlert::show()
{
    m_session = std::make_unique<ModalSession>();
    layOut();
    if (const QScreen* display = screen())
        move(display->availableGeometry().center() - rect().center());
    setWindowTitle(m_title->text());
    QWidget::show();
    raise();
    activateWindow();
    m_btnDefault->setFocus();
}

// Called by the window's own event: it goes when that is over.
void ZRCustomAlert::closeAlertWithRetunCode(int code)
{
    if (current() != this)
        return;
    hide();
    m_session.reset();
    alerts().front().release()->deleteLater();
    alerts().pop_front();
    if (const auto answered = std::exchange(m_answered, nullptr))
        answered(code);
    showNext();
}

void ZRCustomAlert::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        alertReturnDefault();
    else if (event->key() == Qt::Key_Escape)
        alertReturnCancel();
    else
        event->ignore();
}

void ZRCustomAlert::closeEvent(QCloseEvent* event)
{
    event->ignore();
    alertReturnCancel();
}
