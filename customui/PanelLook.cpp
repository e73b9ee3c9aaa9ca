#include "customui/PanelLook.h"

#include <QWidget>

namespace {

constexpr QColor kPanel(240, 248, 255);
constexpr QColor kInk(31, 41, 55);
constexpr QColor kSoftInk(92, 105, 123);
constexpr QColor kAccent(42, 123, 244);
constexpr QColor kSeparator(208, 221, 238);

}

QPalette panelPalette()
{
    QPalette palette(kPanel);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, kInk);
    palette.setColor(QPalette::PlaceholderText, kSoftInk);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

void makeSeparator(QWidget& line)
{
    QPalette palette;
    palette.setColor(QPalette::Window, kSeparator);
    line.setPalette(palette);
    line.setAutoFillBackground(true);
    line.setFixedHeight(1);
}

void markInAccent(QWidget& button)
{
    QPalette palette;
    palette.setColor(QPalette::Text, kAccent);
    button.setPalette(palette);
}
