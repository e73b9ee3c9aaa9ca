#pragma once

#include <QImage>
#include <QWidget>

// Draws a picture stretched into its bounds; no device pixel is mixed where picture and bounds have one size.
class ZRImageView : public QWidget {
public:
    explicit ZRImageView(QWidget* parent = nullptr);

    const QImage& image() const { return m_image; }
    void setImage(const QImage& image);
    // The part of the picture that is drawn, in its pixels; an empty one, as at first, means all of it.
    void setSourceRect(const QRect& pixels);

private:
    void paintEvent(QPaintEvent* event) override;

    QImage m_image; // null draws nothing
    QRect m_source;
};
