#include "settings/LanguageCatalogue.h"

#include "commonutils/CommLog.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCodes.h"
#include "settings/SettingsKeys.h"
#include "settings/ZRParserManager.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>

namespace {

std::vector<LanguageCatalogue::Language> s_languages;

// Kept: ".xml" may stand anywhere in the name.
bool isLanguageFile(const QString& name)
{
    const QString lowerCase = name.toLower();
    return lowerCase.contains(QLatin1String(".xml")) && lowerCase != QLatin1String("link.xml");
}

void leaveOut(const QString& path, const QString& reason)
{
    CommLog::log(QStringLiteral("language file %1 is left out: %2"), path, reason);
}

void addLanguage(const QString& path)
{
    XMLError error;
    if (!ZRParserManager::parseWithFilePath(path, &error))
        return leaveOut(path, error.message);
    const QString id = QFileInfo(path).completeBaseName();
    const QString name = AppSettings::getXMLValueForKey(u"LangName", id);
    if (name.isEmpty()) {
        ZRParserManager::removeParserWithIdentifier(id);
        return leaveOut(path, QStringLiteral("it has no LangName"));
    }
    if (!LanguageCatalogue::hasLanguage(id))
        s_languages.push_back({id, name});
}

QString languageOf(const QStringList& uiLanguages)
{
    for (const QString& code : uiLanguages)
        if (QString id = languageNameOfLocale(QLocale(code)); LanguageCatalogue::hasLanguage(id))
            return id;
    const QString english = QStringLiteral("English");
    return LanguageCatalogue::hasLanguage(english) ? english : s_languages.front().id;
}

}

QStringList LanguageCatalogue::folders()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {QStringLiteral("%1/%2/languages").arg(data, AppSettings::AppBundleId()),
        QStringLiteral(":/languages")};
}

void LanguageCatalogue::updateLangMenu(const QStringList& folders)
{
    s_languages.clear();
    for (const QString& folder : folders)
        for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name))
            if (isLanguageFile(name))
                addLanguage(folder + QLatin1Char('/') + name);
    std::ranges::sort(s_languages, {}, &Language::id);
    QStringList ids;
    for (const Language& language : s_languages)
        ids.append(language.id);
    AppSettings::setLangMenu(ids);
}

const std::vector<LanguageCatalogue::Language>& LanguageCatalogue::languages()
{
    return s_languages;
}

bool LanguageCatalogue::hasLanguage(const QString& id)
{
    return std::ranges::find(s_languages, id, &Language::id) != s_languages.end();
}

void LanguageCatalogue::settleLanguage(const QStringList& uiLanguages)
{
    const bool isChosen = AppSettings::getFromUserDefaultsObject(SettingsKeys::kClientLanguage).isValid();
    const QString chosen = AppSettings::ClientLanguage();
    if (s_languages.empty() || (isChosen && hasLanguage(chosen)))
        return;
    if (isChosen)
        CommLog::log(QStringLiteral("there is no language %1"), chosen);
    AppSettings::setClientLanguage(languageOf(uiLanguages));
}
