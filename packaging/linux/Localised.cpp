#include "packaging/linux/Localised.h"

#include "settings/LanguageCodes.h"
#include "settings/XMLParser.h"

#include <QLocale>
#include <QRegularExpression>

#include <memory>

namespace {

// As desktops name the languages that are shipped; a country stands where it makes a difference.
constexpr const char* kLocales[] = {"cs", "da", "de", "el", "es", "fi", "fr", "hu", "it", "ja", "nb", "nl",
    "nn", "pl", "pt", "sv", "tr", "zh_CN", "zh_HK", "zh_TW"};

// Before the marker, the marker, after it.
const QRegularExpression& lineWithMarker()
{
    static const QRegularExpression expression(QStringLiteral(R"(^(.*)\[#([\w:]+)#\](.*)$)"));
    return expression;
}

bool isElement(const QString& before)
{
    return before.trimmed().startsWith(u'<');
}

// What stands before the value in the language of the locale; `before` ends with "=" or ">".
QString inLocale(const QString& before, const QString& locale)
{
    if (locale.isEmpty())
        return before;
    const QString start = before.chopped(1);
    // A language tag of XML has a hyphen.
    return isElement(before)
               ? start + QStringLiteral(" xml:lang=\"%1\">").arg(QString(locale).replace(u'_', u'-'))
               : start + QStringLiteral("[%1]=").arg(locale);
}

QString linesFor(const QRegularExpressionMatch& marker, const std::vector<Translation>& translations)
{
    const QString before = marker.captured(1), key = marker.captured(2), after = marker.captured(3);
    const QString first = translations.front().text(key);
    QString lines;
    for (const Translation& translation : translations) {
        const QString text = translation.text(key);
        if (text.isEmpty() || (!translation.locale.isEmpty() && text == first))
            continue;
        lines += inLocale(before, translation.locale) + (isElement(before) ? text.toHtmlEscaped() : text) +
                 after + u'\n';
    }
    return lines;
}

bool append(const QString& path, const QString& locale, std::vector<Translation>& translations)
{
    const auto texts = std::make_shared<XMLParser>();
    XMLError error;
    if (!texts->parseWithFilePath(path, &error))
        return false;
    translations.push_back(
        {locale, [texts](QStringView key) { return texts->getValueForKeywords(key.toString()); }});
    return true;
}

}

QString localised(const QString& text, const std::vector<Translation>& translations)
{
    QString result;
    const QStringList lines = text.chopped(text.endsWith(u'\n')).split(u'\n');
    for (const QString& line : lines) {
        const QRegularExpressionMatch marker = lineWithMarker().match(line);
        result += marker.hasMatch() ? linesFor(marker, translations) : line + u'\n';
    }
    return result;
}

std::vector<Translation> translationsIn(const QString& folder)
{
    const QString path = folder + QStringLiteral("/%1.xml");
    std::vector<Translation> translations;
    if (!append(path.arg(QStringLiteral("English")), QString(), translations))
        return {};
    for (const char* code : kLocales) {
        const QString locale = QLatin1String(code);
        append(path.arg(languageNameOfLocale(QLocale(locale))), locale, translations);
    }
    return translations;
}
