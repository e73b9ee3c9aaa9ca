#include "service/Log.h"

#include <iostream>

void logLine(const std::string& line)
{
    std::cerr << line + '\n';
}
