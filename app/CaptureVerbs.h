#pragma once

#include "app/ResidentLink.h"
#include "capture/CaptureOutcome.h"

#include <variant>

class WindowServer;

// What the verbs that make a picture mean, and what is answered to them.
namespace CaptureVerbs {

// What to capture; or, where that is plain beforehand, the answer of a capture that cannot be. Borrows the
// window server until the capture has begun.
std::variant<CaptureOrder, Reply> ordered(const VerbRequest& request, const WindowServer& windowServer);
// The display that a countdown stands on; not valid when there is none.
DisplayRecord displayOf(const VerbRequest& request);
Reply replyTo(const VerbRequest& request, const CaptureOutcome& outcome);

}
