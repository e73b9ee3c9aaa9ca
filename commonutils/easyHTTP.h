#pragma once

#include <QString>

// Small requests that block the calling thread, whose events stay where they are, until the answer is there;
// 15 seconds without a byte are a failure. Never for the main thread. http: and https: only.
class easyHTTP {
public:
    easyHTTP() = delete;

    // The body as UTF-8, whatever its status; empty when no data came back.
    static QString GET(const QString& url);
    static QString GET(const QString& url, const QString& userAgent);
    // Sends the body as a form, in ASCII: other characters become '?'. A failure is written to the log.
    static void POST(const QString& url, const QString& postData);

private:
    static QString _getFromURL(const QString& url, const QString& userAgent);
};
