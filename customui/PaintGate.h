#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

// Shows a window whose first picture somebody else puts on the screen: nothing is painted when it appears,
// so its backing store stays untouched memory until a part of it really changes. A part that the desktop
// uncovers later is painted anew instead of being flushed from a backing store that never held it.
class PaintGate : public QObject {
public:
    // `window` is a top-level widget and owns the gate.
    explicit PaintGate(QWidget& window);

    // Shows the window with its visible children. Call update() on the window afterwards where the picture
    // could not be put there after all.
    void showUnpainted();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void markMapped();
    void passOverUntilIdle();
    bool answerExposed(const QRegion& region);

    QWidget& m_window;
    bool m_isPassing = false; // the exposure of the mapping itself is still arriving
};
