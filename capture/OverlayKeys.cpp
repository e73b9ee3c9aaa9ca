#include "capture/OverlayKeys.h"

#include "platform/KeyPosition.h"

#include <array>

namespace {

struct Equivalent {
    Qt::Key key;
    quint32 position; // the key's macOS virtual key code, for layouts without Latin letters
    bool needsCommand;
    OverlayAction action;
};
constexpr std::array<Equivalent, 3> kEquivalents{{
    {Qt::Key_Escape, 53, false, OverlayAction::Cancel},
    {Qt::Key_S, 1, true, OverlayAction::Save},
    {Qt::Key_C, 8, true, OverlayAction::Copy},
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

bool hasCommand(Qt::KeyboardModifiers modifiers)
{
    const auto relevant =
        modifiers & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier | Qt::ShiftModifier);
    return relevant == Qt::ControlModifier || relevant == Qt::MetaModifier;
}

}

OverlayAction overlayAction(const QKeyEvent& event)
{
    for (const Equivalent& e : kEquivalents)
        if (isPressed(e, event) && (!e.needsCommand || hasCommand(event.modifiers())))
            return e.action;
    return OverlayAction::None;
}
