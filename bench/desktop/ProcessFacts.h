#pragma once

#include <QtGlobal>

// What the kernel has counted for a running process, its threads together; 0 when it is gone.
namespace ProcessFacts {

double cpuMilliseconds(qint64 pid);
double residentMegabytes(qint64 pid); // of 1,000,000 bytes
qint64 contextSwitches(qint64 pid);   // wanted and unwanted: at rest, wake-ups
// Those of the next ten seconds, in which it sleeps.
qint64 contextSwitchesIn10s(qint64 pid);

}
