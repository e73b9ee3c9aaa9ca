#pragma once

#include "app/VerbRequest.h"

#include <QByteArray>
#include <QString>

#include <optional>

// What the resident program answers to a verb: how the caller ends and what it prints.
struct Reply {
    int exitCode = 0;
    QString out{};    // data for stdout
    QString err{};    // words for stderr
    QByteArray raw{}; // bytes for stdout
};

// How a later start of the program reaches the resident one: a local socket for this user and desktop
// session, one line with the request towards it; back one line with the reply, and the reply's raw bytes
// behind it.
namespace ResidentLink {

// The verb of a plain start.
QString startVerb();
// The verb by which the doctor asks for what only the resident program knows: a line a hot key that does not
// work.
QString healthVerb();
QString socketPath();
QString lockPath();
QByteArray encoded(const VerbRequest& request);
std::optional<VerbRequest> decodedRequest(const QByteArray& line);
// The line alone.
QByteArray encoded(const Reply& reply);
// `rawSize` bytes are to come behind the line.
std::optional<Reply> decoded(const QByteArray& line, qint64* rawSize);

}
