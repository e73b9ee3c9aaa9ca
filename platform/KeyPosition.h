#pragma once

#include <QKeyEvent>

#include <optional>

// The macOS virtual key code of the position on the keyboard that an event came from, whatever the layout
// makes of it. Empty for a position that has none.
std::optional<quint32> keyPosition(const QKeyEvent& event);
// What Qt calls the modifiers that macOS calls Command and Control; Command is the Super key elsewhere.
Qt::KeyboardModifier commandModifier();
Qt::KeyboardModifier controlModifier();
