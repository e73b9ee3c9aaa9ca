#pragma once

#include <QRect>
#include <QString>

// One window as the desktop shows it.
struct WindowRecord {
    QRect pixels;     // as DisplayRecord::pixels counts; may reach beyond every display
    QString owner;    // the program's name; "Dock" for a dock or a panel; empty when it cannot be told
    QString name;     // the window's title; empty when it has none
    double alpha = 1; // 0 invisible to 1 opaque
};
