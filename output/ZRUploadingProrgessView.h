#pragma once

#include <QLabel>
#include <QWidget>

// A bar that fills from the left, with its percentage beside it.
class ZRUploadingProrgessView : public QWidget { // Kept: the spelling.
public:
    explicit ZRUploadingProrgessView(QWidget* parent = nullptr);

    double progress() const { return m_progress; } // 0 to 1
    // Kept: the percentage is cut, not rounded.
    void setProgress(double progress);
    QString percentage() const { return mLabelprogress->text(); }

private:
    QRect bar() const;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    double m_progress = 0;
    QLabel* mLabelprogress;
};
