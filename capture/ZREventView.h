#pragma once

#include "customui/View.h"

#include <QPointer>

#include <functional>

class ScreenCoverWindow;
class ZREditorView;

// The transparent top layer of a window that covers a display: takes every mouse event and hands it to the
// editor or to its window, once. A drag stays with whoever took its press.
class ZREventView : public View {
public:
    explicit ZREventView(ScreenCoverWindow& window);

    // The editor that takes what happens at a location of the window; null for the window itself.
    std::function<ZREditorView*(ZRPoint location)> editorAt;

private:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    ZREditorView* takerOf(const ZRMouseEvent& event) const;
    void leftMouseDown(const ZRMouseEvent& event);
    void leftMouseDragged(const ZRMouseEvent& event);
    void moved(const ZRMouseEvent& event);

    ScreenCoverWindow& m_window;
    QPointer<ZREditorView> m_editor; // took the press that is down; null: the window did
};
