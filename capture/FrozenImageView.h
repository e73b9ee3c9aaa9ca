#pragma once

#include "platform/Frame.h"

#include <QWidget>

#include <memory>

// The lowest layer of the overlay: the frozen display, one device pixel of it on one of the screen.
class FrozenImageView : public QWidget {
public:
    explicit FrozenImageView(QWidget* parent);

    void setFrame(std::shared_ptr<const Frame> frame) { m_frame = std::move(frame); }

private:
    void paintEvent(QPaintEvent* event) override;

    std::shared_ptr<const Frame> m_frame;
};
