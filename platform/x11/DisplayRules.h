#pragma once

#include "platform/DisplayRecord.h"

#include <vector>

// Moves displays from the root window's pixels to the first display's top-left corner and gives them their
// frames. A frame's corner keeps the distance in device pixels, only its size is in the display's points:
// neighbours of different scales may stand apart but never overlap.
std::vector<DisplayRecord> arrangedDisplays(std::vector<DisplayRecord> onRoot);
