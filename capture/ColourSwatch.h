#pragma once

#include <QAbstractButton>

// A field of one colour; one that takes the focus is a button, by mouse and by keyboard.
class ColourSwatch : public QAbstractButton {
    Q_OBJECT
public:
    // `size` in points.
    ColourSwatch(QSize size, Qt::FocusPolicy focus, QWidget* parent);

    QRgb colour() const { return m_colour; }
    void setColour(QRgb colour);

    QSize sizeHint() const override { return m_size; }

private:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    QColor edge() const;

    const QSize m_size;
    QRgb m_colour = qRgb(0, 0, 0);
};
