#pragma once

#include "bench/desktop/Resident.h"

// The programs that are compared, each beside its floor, each with a hot key of its own. The program's
// full-screen key is the last one that it makes live.
namespace Subjects {

constexpr Key kRegionKey = Key::Digit1;
constexpr Key kFullScreenKey = Key::Digit2;

QString program();
// `scale` is the whole factor that it draws at.
Resident ours(Desktop& desktop, int scale = 1);
Resident oursWithoutNotices(Desktop& desktop);
Resident overlayFloor(Desktop& desktop, int scale = 1);
// `bright` are the rectangles that become bright under the pointer.
Resident hoverFloor(Desktop& desktop, const QList<QRect>& bright);
Resident trayFloor(Desktop& desktop);
Resident captureFloor(Desktop& desktop, const QString& folder);

}
