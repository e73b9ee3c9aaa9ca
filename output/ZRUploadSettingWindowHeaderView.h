#pragma once

#include <QLabel>
#include <QWidget>

class ZRuploadSettingWindowHeaderWinButtonView;

// The head of the upload window, in the place of a title bar: its title, its close button, and a handle to
// move it by.
class ZRUploadSettingWindowHeaderView : public QWidget {
public:
    explicit ZRUploadSettingWindowHeaderView(QWidget* parent);

    void changeText();
    static constexpr int kHeight = 36; // points

private:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

    QLabel* m_title;
    ZRuploadSettingWindowHeaderWinButtonView* m_buttons;
};
