#include "capture/EditedColour.h"

void EditedColour::setRgb(QRgb colour)
{
    m_rgb = m_exactRgb = colour;
    m_hsl = m_exactHsl = ColourRules::toHsl(colour, m_hsl);
}

void EditedColour::setHsl(const ColourRules::Hsl& hsl)
{
    m_hsl = hsl;
    m_rgb = hsl == m_exactHsl ? m_exactRgb : ColourRules::toRgb(hsl);
}
