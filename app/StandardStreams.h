#pragma once

#include <QString>

// The streams that the program was started with. Writing to one never ends the program.
namespace StandardStreams {

// To be called before anything is opened: a stream that was closed must not become the next file.
void secure();
// Why stdout cannot be written; empty as long as nobody can tell.
QString outputProblem();
bool isOutputTerminal();
// Empty when all bytes are written; else the reason.
QString write(const char* bytes, qint64 count);

}
