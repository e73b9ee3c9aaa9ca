#pragma once

#include "customui/View.h"

#include <QString>

// A picture by name that fills its view and takes no mouse events.
class ImageView : public View {
public:
    explicit ImageView(const QString& imageName, QWidget* parent = nullptr);

private:
    void paintEvent(QPaintEvent* event) override;

    QString m_imageName;
};
