#pragma once

#include <QKeyEvent>
#include <QPoint>

#include <optional>

// What a key means on the overlay.
enum class OverlayAction {
    None,
    Cancel,
    Save,
    Copy,
    Pin,
    Upload,
    CopyColour,
    Undo,
    Redo,
    Delete,
    TakeWholeDisplay
};

// Control serves beside the command key, which Qt calls Meta where it is the Super key.
OverlayAction overlayAction(const QKeyEvent& event);

// The digit of a tool, 1 to 9. Nothing for another key or a chord.
std::optional<int> toolDigit(const QKeyEvent& event);

// An arrow key's step for the region, in device pixels, y growing downwards.
struct ArrowStep {
    QPoint by;
    bool isResize = false; // with Shift: the right or the bottom edge alone
};
// Nothing for another key or another chord.
std::optional<ArrowStep> arrowStep(const QKeyEvent& event);
