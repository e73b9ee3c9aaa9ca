#pragma once

#include "platform/macos/LoginService.h"

// What the user has switched off in the system's settings stays off: such an entry counts as none, is not
// removed and not added again.
namespace LoginRules {

bool isRegistered(const LoginService& service);
// False when the program does not start at login afterwards. A present entry is left as it is.
bool add(LoginService& service);
// True when the program does not start at login afterwards.
bool remove(LoginService& service);

}
