#include "capture/ColourRules.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kFullCircle = 360;

bool isHexDigit(QChar c)
{
    return c.unicode() < 128 && std::isxdigit(c.unicode());
}

QString doubled(const QString& digits)
{
    QString twice;
    for (const QChar digit : digits)
        twice += QString(2, digit);
    return twice;
}

}

ColourRules::Hsl ColourRules::toHsl(QRgb colour, const Hsl& before)
{
    float hue = 0, saturation = 0, lightness = 0;
    QColor::fromRgb(colour).getHslF(&hue, &saturation, &lightness);
    const bool isGrey = hue < 0;
    const bool isExtreme = colour == qRgb(0, 0, 0) || colour == qRgb(255, 255, 255);
    return {isGrey ? before.hue : int(std::lround(hue * kFullCircle)) % kFullCircle,
        isExtreme ? before.saturation : int(std::lround(saturation * 100)),
        int(std::lround(lightness * 100))};
}

QRgb ColourRules::toRgb(const Hsl& hsl)
{
    return QColor::fromHslF(
        float(hsl.hue) / kFullCircle, float(hsl.saturation) / 100, float(hsl.lightness) / 100)
        .rgb();
}

QString ColourRules::htmlText(QRgb colour)
{
    return QColor::fromRgb(colour).name();
}

std::optional<QRgb> ColourRules::fromHtmlText(const QString& text)
{
    QString digits = text.trimmed();
    if (digits.startsWith(QLatin1Char('#')))
        digits.remove(0, 1);
    if (!std::all_of(digits.begin(), digits.end(), isHexDigit))
        return std::nullopt;
    if (digits.size() == 3)
        digits = doubled(digits);
    if (digits.size() != 6)
        return std::nullopt;
    return qRgb(0, 0, 0) | digits.toUInt(nullptr, 16);
}

QList<QRgb> ColourRules::withPick(QList<QRgb> picks, QRgb colour)
{
    picks.removeAll(colour);
    picks.prepend(colour);
    if (picks.size() > kMostPicks)
        picks.resize(kMostPicks);
    return picks;
}

QStringList ColourRules::storedPicks(const QList<QRgb>& picks)
{
    QStringList stored;
    for (const QRgb colour : picks)
        stored << htmlText(colour);
    return stored;
}

QList<QRgb> ColourRules::readPicks(const QStringList& stored)
{
    QList<QRgb> picks;
    for (const QString& text : stored)
        if (const auto colour = fromHtmlText(text))
            picks << *colour;
    return picks.mid(0, kMostPicks);
}
