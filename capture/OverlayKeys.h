#pragma once

#include <QKeyEvent>

// What a key means on the overlay.
enum class OverlayAction { None, Cancel, Save, Copy };

// Control serves beside the command key, which Qt calls Meta where it is the Super key.
OverlayAction overlayAction(const QKeyEvent& event);
