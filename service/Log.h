#pragma once

#include <string>

// One line on stderr; any thread. Names and titles of pictures, passwords and keys stay out of it: who has a
// link may see its picture.
void logLine(const std::string& line);
