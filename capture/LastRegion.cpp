#include "capture/LastRegion.h"

#include "capture/AreaRules.h"
#include "capture/ToolScreen.h"
#include "settings/AppSettings.h"

#include <utility>

std::optional<CaptureArea> LastRegion::area()
{
    return AreaRules::restored(AppSettings::lastRegion(), ToolScreen::screens());
}

void LastRegion::wasTaken(const CaptureArea& region)
{
    m_taken = AreaRules::stored(region);
}

void LastRegion::write()
{
    if (!m_taken.isEmpty())
        AppSettings::setLastRegion(std::exchange(m_taken, {}));
}
