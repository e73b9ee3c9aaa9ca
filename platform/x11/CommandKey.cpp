#include "platform/CommandKey.h"

QString commandKeyName()
{
    return QStringLiteral("Ctrl");
}
