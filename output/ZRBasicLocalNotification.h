#pragma once

#include <QColor>
#include <QLabel>
#include <QPixmap>
#include <QWidget>

#include <functional>

// A plain notice: icon, title and message.
class ZRBasicLocalNotification : public QWidget {
public:
    // initNotificationWithTitle:message:image:, the image by its name; an unknown one leaves no gap. The
    // title alone stands in the middle of the height.
    ZRBasicLocalNotification(const QString& title, const QString& message, const QString& image);

    void setBackgroundColor(const QColor& color);
    // Called with a click, before the notice goes; `hint` tells what it does.
    void setClickAction(std::function<void()> action, const QString& hint);
    void click() const;

private:
    void layOut(const QString& title, const QString& message, int textX);
    void paintEvent(QPaintEvent* event) override;

    QLabel* mIconView;
    QLabel* mTitleField;
    QLabel* mMessageField;
    QColor mBackColor = Qt::white;
    std::function<void()> m_clickAction;
};
