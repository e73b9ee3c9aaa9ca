#pragma once

#include "capture/ColourRules.h"

// A colour edited by red, green and blue as well as by hue, saturation and lightness. The whole numbers of
// the latter name far fewer colours than the former, so a colour given exactly is kept: its own hue,
// saturation and lightness stand for it, however often they are left and come back.
class EditedColour {
public:
    QRgb rgb() const { return m_rgb; }
    const ColourRules::Hsl& hsl() const { return m_hsl; }
    void setRgb(QRgb colour);
    // What was set is what hsl() answers, where the colour has no hue or saturation of its own too.
    void setHsl(const ColourRules::Hsl& hsl);

private:
    QRgb m_rgb = qRgb(0, 0, 0);
    ColourRules::Hsl m_hsl;
    QRgb m_exactRgb = m_rgb; // as it was given last
    ColourRules::Hsl m_exactHsl;
};
