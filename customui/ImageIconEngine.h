#pragma once

#include <QIconEngine>
#include <QString>

// Draws a picture by name wherever Qt wants an icon, in the icon's mode: disabled, or hovered as the active
// and selected items of menus and lists are.
class ImageIconEngine : public QIconEngine {
public:
    // `name` without a state.
    explicit ImageIconEngine(QString name);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QIconEngine* clone() const override;

private:
    QString m_name;
};
