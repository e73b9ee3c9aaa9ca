#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include <optional>

// Colours in numbers and in words. Every colour is opaque.
namespace ColourRules {

inline constexpr int kMostPicks = 12;

// As people write it: whole degrees of the hue, 0 to 359, and whole per cents.
struct Hsl {
    int hue = 0;
    int saturation = 0;
    int lightness = 0;
    friend bool operator==(const Hsl&, const Hsl&) = default;
};

// The nearest whole values. A grey has no hue, and black and white no saturation either: `before` tells them.
Hsl toHsl(QRgb colour, const Hsl& before = {});
QRgb toRgb(const Hsl& hsl);

// "#rrggbb", lower case.
QString htmlText(QRgb colour);
// Reads six digits or three, with or without "#", in any case, with blanks around them; nothing otherwise.
std::optional<QRgb> fromHtmlText(const QString& text);

// The picks with the latest first, each colour once, the oldest gone beyond kMostPicks.
QList<QRgb> withPick(QList<QRgb> picks, QRgb colour);
QStringList storedPicks(const QList<QRgb>& picks);
// What is no colour is left out.
QList<QRgb> readPicks(const QStringList& stored);

}
