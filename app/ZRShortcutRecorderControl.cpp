#include "app/ZRShortcutRecorderControl.h"

#include "app/ShortcutRecordDelegate.h"
#include "app/ShortcutRules.h"
#include "app/StatusbarRules.h"
#include "customui/Images.h"
#include "platform/KeyPosition.h"
#include "settings/AppSettings.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace {

constexpr double kRing = 3; // points around the field, for the focus ring
constexpr int kFieldHeight = 28;
constexpr double kCorner = 5;
constexpr double kButton = 20;
constexpr double kButtonImage = 16;
constexpr double kGap = 4;     // between the buttons, and to the field's edge
constexpr int kTextMargin = 8; // beside a text that fills the field
constexpr int kSmallestWidth = 200;
constexpr int kKeyUpMs = 50; // a repeat's press follows its release sooner
constexpr QColor kBorder(184, 202, 226);
constexpr QColor kHoverBorder(130, 160, 205);
constexpr QColor kAccent(42, 123, 244);
constexpr QColor kHover(206, 224, 255);
constexpr QColor kWrong(190, 32, 32);
constexpr QColor kInk(31, 41, 55);
constexpr QColor kSoftInk(92, 105, 123);

bool isTab(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

bool isModifier(const QKeyEvent& event)
{
    constexpr int kKeys[] = {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_Super_L,
        Qt::Key_Super_R, Qt::Key_AltGr};
    return std::ranges::find(kKeys, event.key()) != std::end(kKeys);
}

}

ZRShortcutRecorderControl::ZRShortcutRecorderControl(QWidget* parent)
    : QWidget(parent)
{
    setup();
}

ZRShortcutRecorderControl::~ZRShortcutRecorderControl()
{
    letGoOfKeyboard();
}

void ZRShortcutRecorderControl::setup()
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_keyUp.setSingleShot(true);
    m_keyUp.setInterval(kKeyUpMs);
    connect(&m_keyUp, &QTimer::timeout, this, [this] { heldKeyIsUp(); });
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setClickPlaceholder(AppSettings::getXMLValueForKeywords(u"Options:Hotkey:ClickToSetShortcut"));
    setTypeShortcutPlaceholder(AppSettings::getXMLValueForKeywords(u"Options:Hotkey:TypeShortcut"));
}

void ZRShortcutRecorderControl::setClickPlaceholder(const QString& text)
{
    m_clickPlaceholder = text;
    updateGeometry();
    update();
}

void ZRShortcutRecorderControl::setTypeShortcutPlaceholder(const QString& text)
{
    m_typePlaceholder = text;
    updateGeometry();
    update();
}

void ZRShortcutRecorderControl::setRefusal(const QString& reason)
{
    m_refusal = reason;
    showShortcut();
}

void ZRShortcutRecorderControl::setOldShortcutKeyValue(const QString& keyValue, quint32 oldModifierFlagsMask)
{
    mTypedKeyValue = keyValue.toUpper();
    mTypedModifierFlags = oldModifierFlagsMask;
    showShortcut();
}

// The symbols are not printed on every keyboard: the tool tip names the keys.
void ZRShortcutRecorderControl::showShortcut()
{
    const QString hotKey = ShortcutRules::hotKeyString(mTypedKeyValue, mTypedModifierFlags);
    const QString keys = StatusbarRules::keyEquivalent(hotKey).toString(QKeySequence::NativeText);
    setToolTip(m_refusal.isEmpty() ? keys : m_refusal);
    setAccessibleDescription(m_refusal.isEmpty() ? keys : keys + QStringLiteral(". ") + m_refusal);
    update();
}

QString ZRShortcutRecorderControl::typedModifierFlagsStringValue() const
{
    return ShortcutRules::symbols(mTypedModifierFlags);
}

void ZRShortcutRecorderControl::startRecoding()
{
    m_keyUp.stop();
    m_heldKey = 0;
    _isRecoding = true;
    setFocus(Qt::OtherFocusReason);
    grabKeyboard();
    placeButtons();
    if (onTyping)
        onTyping();
}

// The keyboard stays here while the recorded key is down, so that its repeats reach nobody.
void ZRShortcutRecorderControl::stopRecoding()
{
    _isRecoding = false;
    if (m_heldKey == 0)
        letGoOfKeyboard();
    unregisterFirstResponder();
}

void ZRShortcutRecorderControl::letGoOfKeyboard()
{
    if (QWidget::keyboardGrabber() == this)
        releaseKeyboard();
}

void ZRShortcutRecorderControl::unregisterFirstResponder()
{
    clearFocus();
    update();
}

void ZRShortcutRecorderControl::exitTypeShortcut()
{
    if (!_isRecoding)
        return;
    stopRecoding();
    placeButtons();
    if (mTypedModifierFlags == 0 && m_delegate)
        m_delegate->shortcutRecordDidCancel(*this);
    if (onTyping)
        onTyping();
}

void ZRShortcutRecorderControl::windowDidResignKey()
{
    if (!_isRecoding)
        return;
    stopRecoding();
    clear();
    if (mTypedModifierFlags == 0 && m_delegate)
        m_delegate->shortcutRecordDidCancel(*this);
    if (onTyping)
        onTyping();
}

void ZRShortcutRecorderControl::clear()
{
    mTypedKeyValue.clear();
    mTypedModifierFlags = 0;
    placeButtons();
    showShortcut();
    if (m_delegate)
        m_delegate->shortcutRecordDidDone(*this, mTypedKeyValue, mTypedModifierFlags);
}

void ZRShortcutRecorderControl::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    isMouseDown = true;
    update();
}

void ZRShortcutRecorderControl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    isMouseDown = false;
    update();
    if (!rect().contains(event->position().toPoint()))
        event->ignore();
    else if (m_snapbackButtonRect.contains(event->position()))
        exitTypeShortcut();
    else if (m_clearButtonRect.contains(event->position()))
        windowDidResignKey();
    else if (!_isRecoding)
        startRecoding();
}

void ZRShortcutRecorderControl::mouseMoveEvent(QMouseEvent*)
{
    if (_isRecoding)
        update(); // the buttons show which one is under the pointer
}

void ZRShortcutRecorderControl::enterEvent(QEnterEvent*)
{
    isMouseEnter = true;
    update();
}

void ZRShortcutRecorderControl::leaveEvent(QEvent*)
{
    isMouseEnter = false;
    update();
}

// Every key is passed on, recorded ones too; but no Tab, which would take the focus elsewhere.
void ZRShortcutRecorderControl::keyPressEvent(QKeyEvent* event)
{
    event->setAccepted(_isRecoding && isTab(*event));
    if (m_heldKey != 0) {
        if (event->nativeScanCode() == m_heldKey)
            m_keyUp.stop();
    } else if (!_isRecoding) {
        if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
            startRecoding();
    } else if (isFirstResponder() && isModifier(*event)) {
        flagsChanged(*event);
    } else if (isFirstResponder() && !event->isAutoRepeat()) {
        keyDown(*event);
    }
}

void ZRShortcutRecorderControl::keyReleaseEvent(QKeyEvent* event)
{
    event->ignore();
    if (_isRecoding && isFirstResponder() && isModifier(*event)) {
        flagsChanged(*event);
    } else if (m_heldKey != 0 && event->nativeScanCode() == m_heldKey && !event->isAutoRepeat()) {
        m_keyUp.start();
    }
}

void ZRShortcutRecorderControl::heldKeyIsUp()
{
    m_keyUp.stop();
    if (std::exchange(m_heldKey, 0) == 0)
        return;
    letGoOfKeyboard();
    if (onTyping)
        onTyping();
}

void ZRShortcutRecorderControl::flagsChanged(const QKeyEvent& event)
{
    mTypedKeyValue.clear();
    mTypedModifierFlags = ShortcutRules::modifierFlags(event.modifiers());
    update();
}

void ZRShortcutRecorderControl::keyDown(const QKeyEvent& event)
{
    const quint32 held = ShortcutRules::modifierFlags(event.modifiers());
    const auto position = keyPosition(event);
    const QString key = position ? ShortcutRules::keyText(*position) : QString();
    if (held == 0 || key.isEmpty())
        return;
    mTypedKeyValue = key.toUpper();
    mTypedModifierFlags = held;
    m_heldKey = event.nativeScanCode();
    stopRecoding();
    placeButtons();
    showShortcut();
    if (m_delegate)
        m_delegate->shortcutRecordDidDone(*this, mTypedKeyValue, mTypedModifierFlags);
}

void ZRShortcutRecorderControl::focusInEvent(QFocusEvent*)
{
    update();
}

// Another control of the window takes over: nothing was recorded, the shortcut stays.
void ZRShortcutRecorderControl::focusOutEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        exitTypeShortcut();
    update();
}

void ZRShortcutRecorderControl::resizeEvent(QResizeEvent*)
{
    placeButtons();
}

bool ZRShortcutRecorderControl::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate) {
        windowDidResignKey();
        heldKeyIsUp(); // or at least nobody here learns when it is
    } else if (event->type() == QEvent::ShortcutOverride && _isRecoding) {
        event->accept(); // no key of the window's own fires meanwhile
    } else if (event->type() == QEvent::ToolTip && _isRecoding) {
        showButtonTip(static_cast<const QHelpEvent&>(*event));
        return true;
    }
    return QWidget::event(event);
}

void ZRShortcutRecorderControl::showButtonTip(const QHelpEvent& event) const
{
    if (m_snapbackButtonRect.contains(event.pos()))
        QToolTip::showText(event.globalPos(), AppSettings::getXMLValueForKeywords(u"Button:Cancel"));
    else if (m_clearButtonRect.contains(event.pos()))
        QToolTip::showText(event.globalPos(), AppSettings::getXMLValueForKeywords(u"Lumora:HotKey:Clear"));
}

bool ZRShortcutRecorderControl::focusNextPrevChild(bool next)
{
    return !_isRecoding && QWidget::focusNextPrevChild(next);
}

QSize ZRShortcutRecorderControl::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int buttons = int(2 * (kButton + kGap));
    const int typing = metrics.horizontalAdvance(m_typePlaceholder) + buttons;
    const int text = std::max(metrics.horizontalAdvance(m_clickPlaceholder), typing) + 2 * kTextMargin;
    const int ring = int(2 * kRing);
    return {std::max(text, kSmallestWidth) + ring, kFieldHeight + ring};
}

void ZRShortcutRecorderControl::placeButtons()
{
    const QRectF around = field();
    const double y = around.top() + (around.height() - kButton) / 2;
    const double x = around.right() - kGap - kButton;
    m_clearButtonRect = _isRecoding ? QRectF(x, y, kButton, kButton) : QRectF();
    m_snapbackButtonRect = _isRecoding ? QRectF(x - kGap - kButton, y, kButton, kButton) : QRectF();
    update();
}

QRectF ZRShortcutRecorderControl::field() const
{
    return QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing);
}

QRectF ZRShortcutRecorderControl::textRect() const
{
    QRectF text = field();
    if (_isRecoding)
        text.setRight(m_snapbackButtonRect.left());
    return text;
}

std::pair<QRectF, QRectF> ZRShortcutRecorderControl::shortcutRects() const
{
    const QFontMetricsF metrics(font());
    const double flags = metrics.horizontalAdvance(typedModifierFlagsStringValue());
    const double key = metrics.horizontalAdvance(mTypedKeyValue);
    const QRectF text = textRect();
    const double x = text.left() + (text.width() - flags - key) / 2;
    return {{x, text.top(), flags, text.height()}, {x + flags, text.top(), key + 1, text.height()}};
}

QColor ZRShortcutRecorderControl::shortcutColor() const
{
    return m_refusal.isEmpty() || _isRecoding ? kInk : kWrong;
}

// Empty where a shortcut, or the modifiers that are held, show instead.
QString ZRShortcutRecorderControl::placeholder() const
{
    const bool isEmpty = mTypedKeyValue.isEmpty() && mTypedModifierFlags == 0;
    if (!_isRecoding)
        return isEmpty ? m_clickPlaceholder : QString();
    return isEmpty || !mTypedKeyValue.isEmpty() ? m_typePlaceholder : QString();
}

void ZRShortcutRecorderControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    _drawFocusRingMask(painter);
    _drawBackground(painter);
    _drawBorder(painter);
    _drawPlaceholder(painter);
    _drawTypedModifierFlags(painter);
    _drawTypedKeyValue(painter);
    _drawInterior(painter);
}

void ZRShortcutRecorderControl::_drawBackground(QPainter& painter) const
{
    const bool isPressed = isMouseDown && isMouseEnter && !_isRecoding;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isPressed ? kHover : Qt::white);
    painter.drawRoundedRect(field(), kCorner, kCorner);
}

void ZRShortcutRecorderControl::_drawBorder(QPainter& painter) const
{
    QColor color = isMouseEnter ? kHoverBorder : kBorder;
    if (_isRecoding || isFirstResponder())
        color = kAccent;
    else if (!m_refusal.isEmpty())
        color = kWrong;
    painter.setPen(QPen(color, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(field().adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

void ZRShortcutRecorderControl::_drawFocusRingMask(QPainter& painter) const
{
    if (!_isRecoding && !isFirstResponder())
        return;
    QColor ring = kAccent;
    ring.setAlpha(_isRecoding ? 110 : 60);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ring);
    painter.drawRoundedRect(QRectF(rect()), kCorner + kRing, kCorner + kRing);
}

void ZRShortcutRecorderControl::_drawPlaceholder(QPainter& painter) const
{
    painter.setPen(kSoftInk);
    painter.drawText(textRect(), Qt::AlignCenter, placeholder());
}

void ZRShortcutRecorderControl::_drawTypedModifierFlags(QPainter& painter) const
{
    if (!placeholder().isEmpty())
        return;
    painter.setPen(shortcutColor());
    painter.drawText(shortcutRects().first, Qt::AlignVCenter, typedModifierFlagsStringValue());
}

void ZRShortcutRecorderControl::_drawTypedKeyValue(QPainter& painter) const
{
    if (!placeholder().isEmpty())
        return;
    painter.setPen(shortcutColor());
    painter.drawText(shortcutRects().second, Qt::AlignVCenter, mTypedKeyValue);
}

void ZRShortcutRecorderControl::_drawInterior(QPainter& painter) const
{
    if (!_isRecoding)
        return;
    drawButton(painter, m_snapbackButtonRect, "snapBack");
    drawButton(painter, m_clearButtonRect, "clearKey");
}

void ZRShortcutRecorderControl::drawButton(QPainter& painter, const QRectF& rect, const char* image) const
{
    const bool isUnder = rect.contains(QPointF(mapFromGlobal(QCursor::pos())));
    if (isUnder) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(kHover);
        painter.drawRoundedRect(rect, kGap, kGap);
    }
    const QString name = QLatin1String(image) + QLatin1String(isUnder ? "-hover" : "-normal");
    const double inset = (kButton - kButtonImage) / 2;
    painter.drawPixmap(rect.topLeft() + QPointF(inset, inset),
        imageNamed(name, QSizeF(kButtonImage, kButtonImage), devicePixelRatioF()));
}
