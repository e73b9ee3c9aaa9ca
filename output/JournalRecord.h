#pragma once

#include "platform/DisplayRecord.h"

#include <QByteArray>

#include <optional>

// The small file of the journal, beside the picture that it names.
struct JournalRecord {
    qint64 time = 0;     // milliseconds since 1970
    QString pictureName; // in the same folder
    DisplayRecord display;
    ZRRect region;
    QByteArray annotations;

    // Bytes that are cut short, damaged or of another version of the program give nothing, and the reason.
    QByteArray encoded() const;
    static std::optional<JournalRecord> decoded(const QByteArray& bytes, QString* reason);
};
