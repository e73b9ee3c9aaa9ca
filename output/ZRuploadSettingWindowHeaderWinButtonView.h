#pragma once

#include <QWidget>

class ZRHoverButton;

// The close button of the upload window's head; it shows its hover look while the pointer is over the view.
// Kept: the lower-case letter in the name.
class ZRuploadSettingWindowHeaderWinButtonView : public QWidget {
public:
    explicit ZRuploadSettingWindowHeaderWinButtonView(QWidget* parent);

private:
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

    ZRHoverButton* winCloseButton;
};
