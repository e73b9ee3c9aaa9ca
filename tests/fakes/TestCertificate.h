#pragma once

#include <QString>

// A new certificate for 127.0.0.1 that signs itself, and its key, as PEM files in a folder.
struct TestCertificate {
    // Empty paths when they cannot be made.
    static TestCertificate madeIn(const QString& folder);

    QString certificate;
    QString key;
};
