#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// The languages that the interface can be shown in, each a file "<id>.xml". Main thread only.
class LanguageCatalogue {
public:
    struct Language {
        QString id;   // as stored under "clientLang"
        QString name; // in the language itself
    };

    LanguageCatalogue() = delete;

    // The user's own folder, which may not exist, then the program's.
    static QStringList folders();
    // Reads the language files that lie directly in the folders; of two of one id the earlier folder's
    // counts. A file that cannot be read, or that has no name, is left out and logged. The ids are stored as
    // the language menu's.
    static void updateLangMenu(const QStringList& folders);
    // By id.
    static const std::vector<Language>& languages();
    static bool hasLanguage(const QString& id);

    // Makes sure that the current language is one of the languages. Where none was chosen, or the chosen one
    // is not there, it becomes the first of the desktop's languages ("de-AT") that is, else English, else
    // any.
    static void settleLanguage(const QStringList& uiLanguages);
};
