#include "capture/LastCapture.h"

#include "editor/ZRGraffitManager.h"
#include "settings/AppSettings.h"

JournalEntry LastCapture::entryOf(
    const std::shared_ptr<const Frame>& frame, ZRRect region, const ZRGraffitManager& annotations)
{
    const DisplayRecord& display = frame->display();
    if (AppSettings::isMosaicSecure() && annotations.hasMosaic())
        return {display, annotations.composed(frame->image().rect()), region, {}};
    return {display, frame->image(), region, annotations.archived(), frame};
}
