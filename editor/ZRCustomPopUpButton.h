#pragma once

#include "customui/View.h"
#include "geometry/ZRPoint.h"

#include <QColor>
#include <QPointer>
#include <QStringList>

#include <functional>

class QPainterPath;
class ZRCustomPopUpMenu;

// A button that shows a value and drops down a menu of values.
class ZRCustomPopUpButton : public View {
public:
    // The name of the notification that drives an open menu; its object is read by mouseEvent().
    static const QString acceptMouseEventRegister;

    ZRCustomPopUpButton(QSize size, const QStringList& withItemArray, QWidget* parent = nullptr);
    ~ZRCustomPopUpButton() override;

    // Called when a value has been chosen.
    std::function<void()> onAction;
    QString currentValue() const { return mSelectedValue; }
    void setDefaultValue(const QString& value);
    // Of the menu: takes the value.
    void sendSelectedValue(const QString& value);

    ZRCustomPopUpMenu* popMenu() const { return mPopMenu; }
    void popUp();
    void pullsDown();

    void setBackgroundColor(const QColor& color);
    QColor titleColor() const { return m_titleColor; }
    void setTitleColor(const QColor& color);
    QColor borderColor() const { return m_borderColor; }
    void setBorderColor(const QColor& color);
    double borderLineWith() const { return m_borderLineWith; } // Kept: the spelling. Points.
    void setBorderLineWith(double points);

    // Lets whoever holds the pointer drive the open menu, from the next notification on or no longer.
    void registerAcceptMouseEvent();
    void unregisterAcceptMouseEvent();
    // "eventType" 5 for a movement, 1 for a press; "eventLocationX", "eventLocationY" in points of the
    // screen, y downwards.
    void mouseEvent(const QVariantMap& object);

private:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void drawBackground(QPainter& painter) const;
    void drawArrow(QPainter& painter) const;
    void drawValue(QPainter& painter) const;
    void chooseForwarded(ZRPoint point);
    void sendAction() const;

    QColor mBackColor{0, 204, 254};
    QPointer<ZRCustomPopUpMenu> mPopMenu;
    QString mSelectedValue = QStringLiteral("");
    QColor m_titleColor = Qt::black;
    QColor m_borderColor{0, 0, 0, 26};
    double m_borderLineWith = 0;
    bool m_acceptsMouseEvents = false;
    bool m_isObserving = false;
};
