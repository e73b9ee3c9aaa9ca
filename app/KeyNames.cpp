#include "app/KeyNames.h"

#include <QString>

#include <string_view>

QString KeyNames::translate(const char* context, const char* sourceText, const char*, int) const
{
    const bool isMeta = std::string_view(context) == "QShortcut" && std::string_view(sourceText) == "Meta";
    return isMeta ? QStringLiteral("Super") : QString();
}
