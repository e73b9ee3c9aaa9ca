#pragma once

#include "customui/View.h"

#include <QColor>
#include <QFont>
#include <QString>

#include <functional>

// A button of pictures and colours that change as the pointer comes, presses and goes. It hears of the
// pointer from Qt, or from whoever takes the events of its window and calls the operations below. Space and
// Return press it while it has the focus.
class ZRHoverButton : public View {
    Q_OBJECT

public:
    explicit ZRHoverButton(QWidget* parent = nullptr);

    // Called with each click, and by sendAction().
    std::function<void()> onAction;
    // As a click: nothing while the button is disabled or has no action.
    void sendAction();
    // What a click, a key and an assistive tool do: the action, unless a class above does more.
    virtual void click() { sendAction(); }

    // Names as imageNamed() knows them; a name that is empty or unknown shows the normal picture.
    void setImage(const QString& name);
    void setHoverImage(const QString& name);
    void setDownImage(const QString& name);
    // Draws the pictures of all states in advance, so that the first painting of each is cheap.
    void prepareImages() const;
    // Points; the picture's own size until one is set.
    void setImageSize(QSizeF size);

    // Clear until set.
    void setBackgroundColor(const QColor& color);
    void setHoverBackgroundColor(const QColor& color);
    void setDownBackgroundColor(const QColor& color);
    // A border of width 0 is not shown.
    void setBorderColor(const QColor& color);
    void setBorderLineWith(double points); // Kept: the spelling.
    void setCornerRadius(double points);

    // The text in the middle, which is the accessible name as well until one is set.
    QString title() const { return m_title; }
    void setTitle(const QString& title);
    void setTitleColor(const QColor& color);

    bool isMouseInside() const { return m_isMouseInside; }
    void setMouseInside(bool isInside);
    bool isMouseDown() const { return m_isMouseDown; }

    virtual void mouseEntered();
    virtual void mouseExited();
    virtual void mouseDown(const ZRMouseEvent& event);
    virtual void mouseDragged(const ZRMouseEvent& event);
    // Clicks when the pointer is still inside; whose press it was is the caller's business.
    virtual void mouseUp(const ZRMouseEvent& event);

    QSize sizeHint() const override;

protected:
    // What the button shows now; the classes above add states of their own.
    virtual QString shownImage() const;
    virtual QColor shownBackground() const;
    // What the background fills, and where in it the title stands in the middle.
    virtual QRect panelRect() const { return rect(); }
    virtual QRect titleRect() const { return panelRect(); }
    // Whether the button is held down under the pointer.
    bool isPressedDown() const { return m_isMouseDown && m_isMouseInside; }

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    template <typename T>
    void change(T& field, const T& value);
    void setMouseDown(bool isDown) { change(m_isMouseDown, isDown); }
    void drawBackground(QPainter& painter) const;
    void drawImage(QPainter& painter) const;
    QSizeF shownImageSize() const;
    void drawFocus(QPainter& painter) const;

    QString m_image, m_hoverImage, m_downImage;
    QSizeF m_imageSize;
    QColor m_background = Qt::transparent;
    QColor m_hoverBackground = Qt::transparent;
    QColor m_downBackground = Qt::transparent;
    QColor m_borderColor = Qt::transparent;
    double m_borderLineWidth = 0;
    double m_cornerRadius = 4;
    QString m_title;
    QColor m_titleColor = Qt::black;
    bool m_isMouseInside = false;
    bool m_isMouseDown = false;
};
