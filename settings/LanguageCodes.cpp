#include "settings/LanguageCodes.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct Language {
    std::string_view name;
    std::array<std::string_view, 2> codes; // the second may be empty
    QLocale::Language spoken;
};

constexpr std::array<Language, 19> kLanguages{{
    {"English", {"en"}, QLocale::English},
    {"ChineseSimplified", {"hk", "zh"}, QLocale::Chinese},
    {"ChineseTraditional", {"tw"}, QLocale::Chinese},
    {"French", {"fr"}, QLocale::French},
    {"German", {"de"}, QLocale::German},
    {"Italian", {"it"}, QLocale::Italian},
    {"Japanese", {"ja", "jp"}, QLocale::Japanese},
    {"Polish", {"pl"}, QLocale::Polish},
    {"PortugueseBrazil", {"pt"}, QLocale::Portuguese},
    {"Spanish", {"es"}, QLocale::Spanish},
    {"Dutch", {"nl"}, QLocale::Dutch},
    {"Turkish", {"tr"}, QLocale::Turkish},
    {"Czech", {"cz"}, QLocale::Czech},
    {"Danish", {"dk"}, QLocale::Danish},
    {"Finnish", {"fi"}, QLocale::Finnish},
    {"Hungarian", {"hu"}, QLocale::Hungarian},
    {"Norwegian", {"nl"}, QLocale::NorwegianBokmal},
    {"Swedish", {"se"}, QLocale::Swedish},
    {"Greek", {"gr"}, QLocale::Greek},
}};

QString nameOf(const Language* language)
{
    if (language == kLanguages.end())
        return QString();
    return QString::fromLatin1(language->name.data(), static_cast<qsizetype>(language->name.size()));
}

}

QString languageNameFromCode(const QString& code)
{
    const std::string wanted = code.toLower().toStdString();
    if (wanted.empty())
        return QString();
    return nameOf(std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& candidate) {
        return candidate.codes[0] == wanted || candidate.codes[1] == wanted;
    }));
}

QString languageNameOfLocale(const QLocale& locale)
{
    if (locale.language() == QLocale::Chinese && locale.script() == QLocale::TraditionalChineseScript)
        return QStringLiteral("ChineseTraditional");
    if (locale.language() == QLocale::NorwegianNynorsk)
        return QStringLiteral("Norwegian");
    return nameOf(std::find_if(kLanguages.begin(), kLanguages.end(),
        [&](const Language& candidate) { return candidate.spoken == locale.language(); }));
}
