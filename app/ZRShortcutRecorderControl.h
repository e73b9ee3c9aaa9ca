#pragma once

#include <QRectF>
#include <QTimer>
#include <QVariantMap>
#include <QWidget>

#include <functional>
#include <utility>

class QHelpEvent;
class ShortcutRecordDelegate;

// The field in which the user records a shortcut: a click begins, a key with at least one modifier ends the
// recording. While it records it shows the modifiers that are held, a button that clears and a button that
// leaves everything as it was, and it has the whole keyboard, so that also a combination can be recorded that
// other programs use. Rectangles are points of the widget, y downwards.
class ZRShortcutRecorderControl : public QWidget {
    Q_OBJECT
public:
    explicit ZRShortcutRecorderControl(QWidget* parent = nullptr);
    ~ZRShortcutRecorderControl() override;

    // Borrowed; null for nobody.
    void setDelegate(ShortcutRecordDelegate* delegate) { m_delegate = delegate; }
    // The owner's own data.
    const QVariantMap& userInfo() const { return m_userInfo; }
    void setUserInfo(const QVariantMap& info) { m_userInfo = info; }
    void setClickPlaceholder(const QString& text);
    void setTypeShortcutPlaceholder(const QString& text);
    // Why the shortcut does not work, which marks the field; empty when it works.
    void setRefusal(const QString& reason);

    void setOldShortcutKeyValue(const QString& keyValue, quint32 oldModifierFlagsMask);
    const QString& typedKeyValue() const { return mTypedKeyValue; }
    quint32 typedModifierFlags() const { return mTypedModifierFlags; }
    QString typedModifierFlagsStringValue() const;

    bool isRecoding() const { return _isRecoding; } // Kept: the spelling.
    // From the beginning of a recording until the key that ended it is up again: no hot key may fire.
    bool isTyping() const { return _isRecoding || m_heldKey != 0; }
    // Called when isTyping() has changed, after the delegate.
    std::function<void()> onTyping;
    // Ends a recording. What was shown before it is left alone unless a modifier was pressed and let go.
    void exitTypeShortcut();
    // Forgets the shortcut.
    void clear();

    bool isFirstResponder() const { return hasFocus(); }
    // Empty while there are no buttons.
    QRectF clearButtonRect() const { return m_clearButtonRect; }
    QRectF snapbackButtonRect() const { return m_snapbackButtonRect; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void showButtonTip(const QHelpEvent& event) const;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

    void setup();
    void startRecoding();
    void stopRecoding();
    void windowDidResignKey();
    void flagsChanged(const QKeyEvent& event);
    void keyDown(const QKeyEvent& event);
    void heldKeyIsUp();
    void letGoOfKeyboard();
    void unregisterFirstResponder();
    void showShortcut();
    void placeButtons();
    QRectF field() const;
    QRectF textRect() const;
    // Where the modifiers' symbols (first) and the key stand, beside each other in the middle.
    std::pair<QRectF, QRectF> shortcutRects() const;
    QColor shortcutColor() const;
    QString placeholder() const;

    void _drawBackground(QPainter& painter) const;
    void _drawBorder(QPainter& painter) const;
    void _drawPlaceholder(QPainter& painter) const;
    void _drawFocusRingMask(QPainter& painter) const;
    void _drawTypedModifierFlags(QPainter& painter) const;
    void _drawTypedKeyValue(QPainter& painter) const;
    void _drawInterior(QPainter& painter) const;
    void drawButton(QPainter& painter, const QRectF& rect, const char* image) const;

    quint32 mTypedModifierFlags = 0;
    QString mTypedKeyValue; // upper case; empty when there is none
    bool _isRecoding = false;
    bool isMouseDown = false;
    bool isMouseEnter = false;
    QRectF m_clearButtonRect;
    QRectF m_snapbackButtonRect;
    QVariantMap m_userInfo;
    ShortcutRecordDelegate* m_delegate = nullptr;
    QString m_clickPlaceholder;
    QString m_typePlaceholder;
    QString m_refusal;
    quint32 m_heldKey = 0; // the scan code of the recorded key until it is up; 0 for none
    QTimer m_keyUp;        // runs from a release of that key until it is known to be no repeat's
};
