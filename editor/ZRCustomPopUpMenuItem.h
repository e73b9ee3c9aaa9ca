#pragma once

#include "customui/View.h"

#include <QString>

// One row of a pop-up menu.
class ZRCustomPopUpMenuItem : public View {
public:
    static constexpr int kHeight = 20; // points

    ZRCustomPopUpMenuItem(const QString& title, QWidget* parent);
    // The font of all rows and of the button that opens them.
    static QFont sharedFont();

    QString title() const { return mTitle; }
    bool isHover() const { return bIsHover; }
    void hover() { setHover(true); }
    void unHover() { setHover(false); }

private:
    void setHover(bool isHover);
    void paintEvent(QPaintEvent* event) override;

    QString mTitle;
    bool bIsHover = false;
};
