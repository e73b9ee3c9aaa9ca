#include "capture/OverlayKeys.h"

#include "platform/KeyPosition.h"

#include <algorithm>
#include <array>

namespace {

enum class With { Anything, Command, CommandAndShift, Nothing };

struct Equivalent {
    Qt::Key key;
    quint32 position; // the key's macOS virtual key code, for layouts without Latin letters
    With with;
    OverlayAction action;
};
constexpr std::array<Equivalent, 15> kEquivalents{{
    {Qt::Key_Escape, 53, With::Anything, OverlayAction::Cancel},
    {Qt::Key_R, 15, With::Command, OverlayAction::Cancel},
    {Qt::Key_S, 1, With::Command, OverlayAction::Save},
    {Qt::Key_Return, 36, With::Nothing, OverlayAction::Save},
    {Qt::Key_Enter, 76, With::Nothing, OverlayAction::Save},
    {Qt::Key_C, 8, With::Command, OverlayAction::Copy},
    {Qt::Key_P, 35, With::Command, OverlayAction::Pin},
    {Qt::Key_U, 32, With::Command, OverlayAction::Upload},
    {Qt::Key_C, 8, With::Nothing, OverlayAction::CopyColour},
    {Qt::Key_Z, 6, With::Command, OverlayAction::Undo},
    {Qt::Key_Z, 6, With::CommandAndShift, OverlayAction::Redo},
    {Qt::Key_Y, 16, With::Command, OverlayAction::Redo},
    {Qt::Key_Backspace, 51, With::Nothing, OverlayAction::Delete},
    {Qt::Key_Delete, 117, With::Nothing, OverlayAction::Delete},
    {Qt::Key_A, 0, With::Command, OverlayAction::TakeWholeDisplay},
}};

// The keys 1 to 9 of the upper row, as macOS virtual key codes.
constexpr std::array<quint32, 9> kDigitPositions{18, 19, 20, 21, 23, 22, 26, 28, 25};

struct Arrow {
    Qt::Key key;
    QPoint by;
};
constexpr std::array<Arrow, 4> kArrows{{
    {Qt::Key_Left, {-1, 0}},
    {Qt::Key_Right, {1, 0}},
    {Qt::Key_Up, {0, -1}},
    {Qt::Key_Down, {0, 1}},
}};

// Whether the layout makes a letter of the key that no equivalent can name.
bool isForeignLetter(int key)
{
    return key > Qt::Key_ydiaeresis && key < Qt::Key_Escape;
}

bool isPressed(const Equivalent& e, const QKeyEvent& event)
{
    return event.key() == e.key || (isForeignLetter(event.key()) && keyPosition(event) == e.position);
}

Qt::KeyboardModifiers chord(const QKeyEvent& event)
{
    return event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier | Qt::ShiftModifier);
}

bool isWith(With with, Qt::KeyboardModifiers chord)
{
    switch (with) {
    case With::Command:
        return chord == Qt::ControlModifier || chord == Qt::MetaModifier;
    case With::CommandAndShift:
        return chord == (Qt::ControlModifier | Qt::ShiftModifier) ||
               chord == (Qt::MetaModifier | Qt::ShiftModifier);
    case With::Nothing:
        return chord == Qt::NoModifier;
    case With::Anything:
        break;
    }
    return true;
}

}

OverlayAction overlayAction(const QKeyEvent& event)
{
    for (const Equivalent& e : kEquivalents)
        if (isPressed(e, event) && isWith(e.with, chord(event)))
            return e.action;
    return OverlayAction::None;
}

// Some layouts make digits with Shift only, so the position counts as well.
std::optional<int> toolDigit(const QKeyEvent& event)
{
    if (chord(event) != Qt::NoModifier)
        return std::nullopt;
    if (event.key() >= Qt::Key_1 && event.key() <= Qt::Key_9)
        return event.key() - Qt::Key_0;
    const auto found = std::find(kDigitPositions.begin(), kDigitPositions.end(), keyPosition(event));
    if (found == kDigitPositions.end())
        return std::nullopt;
    return int(found - kDigitPositions.begin()) + 1;
}

std::optional<ArrowStep> arrowStep(const QKeyEvent& event)
{
    const auto modifiers = chord(event);
    if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier)
        return std::nullopt;
    for (const Arrow& arrow : kArrows)
        if (event.key() == arrow.key)
            return ArrowStep{arrow.by, modifiers == Qt::ShiftModifier};
    return std::nullopt;
}
