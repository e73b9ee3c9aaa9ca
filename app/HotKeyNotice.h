#pragma once

#include <QString>

// What the user reads of the desktop's reason; empty for a reason that nobody can do something about.
QString textOfRefusal(const QString& reason);
// Tells the user, in a notice, that the desktop refuses a hot key and why, where that is known.
void tellOfRefusedHotKey(const QString& hotKey, const QString& reason);
