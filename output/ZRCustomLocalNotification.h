#pragma once

#include <QColor>
#include <QWidget>

#include <functional>

// A notice with any view in it, and how it goes away.
class ZRCustomLocalNotification : public QWidget {
public:
    // initWithCustomContentView: the view becomes a child; its size is the notice's.
    explicit ZRCustomLocalNotification(QWidget* contentView);

    QWidget* contentView() const { return m_contentView; }
    // On a notice that shows, YES also begins its last seconds.
    bool isAutoHidden() const { return m_isAutoHidden; }
    void setIsAutoHidden(bool isAutoHidden);
    int autoHiddenDelayTime() const { return m_autoHiddenDelayTime; } // seconds
    void setAutoHiddenDelayTime(int seconds) { m_autoHiddenDelayTime = seconds; }
    bool mouseDownExitWithFadeOutEnable() const { return m_mouseDownExitWithFadeOutEnable; }
    void setMouseDownExitWithFadeOutEnable(bool isEnabled) { m_mouseDownExitWithFadeOutEnable = isEnabled; }
    void setBackgroundColor(const QColor& color);
    void exitWithFadeOut() const;

    // What the window around the notice does; set by it.
    std::function<void()> onAutoHidden;
    std::function<void()> onExitWithFadeOut;

private:
    void paintEvent(QPaintEvent* event) override;

    QWidget* m_contentView;
    bool m_isAutoHidden = true;
    int m_autoHiddenDelayTime = 5;
    bool m_mouseDownExitWithFadeOutEnable = true;
    QColor m_backgroundColor = Qt::white;
};
