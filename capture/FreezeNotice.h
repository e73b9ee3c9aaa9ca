#pragma once

class QString;

// Tells the user that the screen could not be read, and what helps where something does. `reason` is the
// window server's.
void tellOfFailedFreeze(const QString& reason);
