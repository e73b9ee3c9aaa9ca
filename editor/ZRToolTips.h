#pragma once

#include "customui/View.h"

#include <QTimer>
#include <QVariantAnimation>

class QLabel;
class ToolTipsBackView;

// The tooltip: one for the program. A child of the window that it stands over, above everything in it, that
// takes no mouse events. A tooltip that goes fades out while the next one comes.
class ZRToolTips : public View {
public:
    // The present tooltip; null when there is none.
    static ZRToolTips* sharedTooltipsWindow();
    // The text of the next tooltip.
    static void setToolTips(const QString& text);
    // Shows it in a moment, at the pointer, over the window of a widget.
    static void showToolTips(const QWidget& over);
    static void hiddenToolTips();
    // Calls a tooltip off that is not showing yet.
    static void cancelShowToolTips();

    explicit ZRToolTips(QWidget* window);

    // Kept: true from the beginning, so that every tooltip comes after the shorter delay.
    bool isShowing() const;
    void setIsNeedCancelShow(bool isNeeded) { bIsHidden = isNeeded; }
    void _setTooltips(const QString& text);
    void _showTooltips();
    // Goes for good.
    void _hiddenTooltips();

private:
    void setAlpha(double alpha);
    void fadeTo(double alpha, int milliseconds);

    ToolTipsBackView* mBackView;
    QLabel* mTooltipsLabel;
    bool bIsHidden = false; // a show that is still to come is called off
    QTimer m_delay;
    QVariantAnimation m_fade;
};
