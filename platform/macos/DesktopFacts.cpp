#include "platform/DesktopFacts.h"

// The pasteboard keeps what a program has put there.
DesktopFacts desktopFacts()
{
    return {24, true, true};
}
