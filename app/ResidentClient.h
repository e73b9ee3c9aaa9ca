#pragma once

#include <QString>

// A start of the program that hands its verb to the resident one. Needs an application object.
namespace ResidentClient {

// Sends the verb, prints the answer and returns its exit code. Where nothing runs, a capture verb starts the
// resident program in the background first.
int run(const QString& verb);

}
