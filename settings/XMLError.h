#pragma once

#include <QLatin1String>
#include <QString>

// Why a language file cannot be had.
struct XMLError {
    static constexpr QLatin1String kUrlDomain{"NSURLErrorDomain"};
    static constexpr QLatin1String kXmlDomain{"NSXMLParserErrorDomain"};
    static constexpr int kNoUrl = -1100;   // in kUrlDomain: the path is empty
    static constexpr int kNoParser = -1;   // in kXmlDomain: the file cannot be read
    static constexpr int kOutOfBounds = 1; // in kXmlDomain: a file that the parser refuses

    QLatin1String domain;
    int code = 0;
    QString message; // "NSErrorParseMessage"
};
