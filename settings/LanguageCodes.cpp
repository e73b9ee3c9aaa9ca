#include "settings/LanguageCodes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct Language {
    std::string_view name;
    std::array<std::string_view, 2> codes; // the second may be empty
};

constexpr std::array<Language, 19> kLanguages{{
    {"English", {"en"}},
    {"ChineseSimplified", {"hk", "zh"}},
    {"ChineseTraditional", {"tw"}},
    {"French", {"fr"}},
    {"German", {"de"}},
    {"Italian", {"it"}},
    {"Japanese", {"ja", "jp"}},
    {"Polish", {"pl"}},
    {"PortugueseBrazil", {"pt"}},
    {"Spanish", {"es"}},
    {"Dutch", {"nl"}},
    {"Turkish", {"tr"}},
    {"Czech", {"cz"}},
    {"Danish", {"dk"}},
    {"Finnish", {"fi"}},
    {"Hungarian", {"hu"}},
    {"Norwegian", {"nl"}},
    {"Swedish", {"se"}},
    {"Greek", {"gr"}},
}};

}

QString languageNameFromCode(const QString& code)
{
    const std::string wanted = code.toLower().toStdString();
    if (wanted.empty())
        return QString();
    const auto* language = std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& candidate) {
        return candidate.codes[0] == wanted || candidate.codes[1] == wanted;
    });
    if (language == kLanguages.end())
        return QString();
    return QString::fromLatin1(language->name.data(), static_cast<qsizetype>(language->name.size()));
}
