#pragma once

#include <QString>

// The text of an autostart entry that starts `program`, an absolute path.
QString entryForProgram(const QString& program);
// The program that an entry starts, without its arguments; empty when it starts none or is switched off.
QString programOfEntry(const QString& text);
