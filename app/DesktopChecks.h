#pragma once

#include "app/DoctorReport.h"
#include "platform/DesktopFacts.h"
#include "platform/Platform.h"

#include <QStringList>

// The doctor's look at the desktop. Nothing is left behind on it.
namespace DesktopChecks {

Finding displays(const Displays& displays);
// Freezes the first display.
Finding capture(const Displays& displays, WindowServer& windowServer, const DesktopFacts& facts);
// `refusals` are the running program's; null where none runs: the hot keys are then tried.
Finding hotKeys(const QStringList* refusals, HotKeys& trial);
Finding clipboard(const DesktopFacts& facts);
// `isFound`: whether the desktop has a place for status items.
Finding tray(bool isFound);

}
