#pragma once

#include "app/ResidentLink.h"

#include <optional>

// A start of the program that hands its verb to the resident one. Needs an application object.
namespace ResidentClient {

// Sends the request, prints the answer and returns its exit code. Where nothing runs, a capture verb starts
// the resident program in the background first.
int run(const VerbRequest& request);
// The answer of a program that runs already; empty when none runs, a failed one when it does not answer in
// time.
std::optional<Reply> askIfRunning(const QString& verb, int timeoutMs);

}
