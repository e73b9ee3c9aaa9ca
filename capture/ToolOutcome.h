#pragma once

#include <QRgb>
#include <QString>

#include <optional>

// How the measuring or the colour tool ended, for whoever asked for it.
struct ToolOutcome {
    std::optional<QRgb> colour; // what was picked
    QString failure;            // one line in words; empty unless the tool could not go on
};
