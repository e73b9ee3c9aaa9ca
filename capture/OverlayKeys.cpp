#include "capture/OverlayKeys.h"

#include <array>

namespace {

struct Equivalent {
    Qt::Key key;
    bool needsCommand;
    OverlayAction action;
};
constexpr std::array<Equivalent, 2> kEquivalents{{
    {Qt::Key_Escape, false, OverlayAction::Cancel},
    {Qt::Key_S, true, OverlayAction::Save},
}};

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
        if (event.key() == e.key && (!e.needsCommand || hasCommand(event.modifiers())))
            return e.action;
    return OverlayAction::None;
}
