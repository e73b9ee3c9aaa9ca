#pragma once

#include "app/ResidentLink.h"

#include <QStringList>

#include <optional>

class ZRScreenShotManager;

// Chooses the annotation tool and its style in the running capture, for those who work on the program:
//   tool [IDENTIFIER | none] [--width POINTS] [--color #rrggbb]
// Understood only where LUMORA_DEVELOPER is set, by the program that runs as well as by the one that asks.
namespace DeveloperVerb {

// The arguments as one verb for the resident program; nothing where they are none.
std::optional<QString> parsed(const QStringList& arguments);
bool isOne(const QString& verb);
Reply carryOut(const QString& verb, ZRScreenShotManager& manager);

}
