#pragma once

#include <QString>

// Tells the user, in a notice, that the desktop refuses a hot key and why, where that is known.
void tellOfRefusedHotKey(const QString& hotKey, const QString& reason);
