#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

// Shows a window whose first picture somebody else puts on the screen: nothing is painted when it appears,
// so its backing store stays untouched memory until a part of it really changes. A part that the desktop
// uncovers later is painted anew instead of being flushed from a backing store that never held it.
class PaintGate : public QObject {
public:
    // `window` is a top-level widget of its final size that its children cover and paint; it owns the gate.
    explicit PaintGate(QWidget& window);

    // Shows the window with its visible children.
    void showUnpainted();
    // Asks all children to paint their part of a region: points of the window. For a picture that could not
    // be put there, as much as for a part that was uncovered.
    void paint(const QRegion& region);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void markMapped();
    void passOverUntilIdle();
    bool answerExposed(const QRegion& region);

    QWidget& m_window;
    QRegion m_waiting;        // to be painted once the window is on the screen
    bool m_isPassing = false; // the exposure of the mapping itself is still arriving
};
