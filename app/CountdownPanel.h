#pragma once

#include "platform/DisplayRecord.h"

#include <QWidget>

#include <functional>

// The seconds that are left before a capture, in the lower right corner of a display. Takes no focus.
class CountdownPanel : public QWidget {
public:
    CountdownPanel();

    void showOn(const DisplayRecord& display);
    // At least 1; the first call's seconds are the whole of the ring.
    void showSeconds(int left);

    // A click anywhere on the panel.
    std::function<void()> onClick;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    int textWidth() const;

    const QString m_title;
    const QString m_hint;
    int m_left = 0;
    int m_whole = 0;
};
