#include "platform/CommandKey.h"

QString commandKeyName()
{
    return QStringLiteral("Command");
}
