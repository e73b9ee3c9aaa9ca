#pragma once

#include "tests/desktop/Input.h"

// Whether Super and this key are some program's hot key now. Asks by taking it and giving it back at once,
// while the server serves nobody else: a program that is about to take it never notices.
bool isHotKeyTaken(const XClient& server, Key key);
