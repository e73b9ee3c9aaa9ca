#pragma once

#include <QObject>
#include <QWidget>

#include <functional>

// Tells of every press and release of the left button that is not for a pop-up while the pop-up shows. The
// event goes on to whoever it is for.
class OutsideClickWatch : public QObject {
public:
    // Belongs to the pop-up and ends with it.
    OutsideClickWatch(QWidget& popup, std::function<void()> onOutside);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QWidget& m_popup;
    std::function<void()> m_onOutside;
};
