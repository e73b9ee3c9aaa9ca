#pragma once

#include <QString>

// What the keyboard calls the key that stands for a command, such as "Ctrl".
QString commandKeyName();
