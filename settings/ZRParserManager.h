#pragma once

#include "settings/XMLError.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <span>

class XMLParser;

// The process's language files, each parsed once and kept under its identifier, the file's name without
// extension. Texts are null where there is none. Main thread only.
class ZRParserManager {
public:
    ZRParserManager() = delete;

    // Of two files of one name the first one parsed is kept. False, and the reason, for a file that cannot be
    // had.
    static bool parseWithFilePath(const QString& path, XMLError* error);
    static bool isExistWithParserIdentifier(QStringView identifier);
    // Null when there is none; lives until it is removed.
    static const XMLParser* getParserWithIdentifier(QStringView identifier);
    static void removeParserWithIdentifier(QStringView identifier);
    static void clearCache();

    // As the parser of that identifier answers.
    static QString getValueForKey(QStringView key, QStringView parserIdentifier);
    static QString getValueForkey(
        QStringView key, std::span<const QStringView> withSuperKeys, QStringView parserIdentifier);
    static QStringList getValuesForKey(QStringView key, QStringView parserIdentifier);
    static QString getValueForKeywords(QStringView keywords, QStringView parserIdentifier);
};
