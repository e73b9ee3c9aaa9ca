#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// What the resident program answers to a verb: how the caller ends and what it prints.
struct Reply {
    int exitCode = 0;
    QString out; // data for stdout
    QString err; // words for stderr
};

// How a later start of the program reaches the resident one: a local socket for this user and desktop
// session, one line with the verb towards it, one line with the reply back.
namespace ResidentLink {

// The verb of a plain start.
QString startVerb();
QString socketPath();
QString lockPath();
QByteArray encoded(const Reply& reply);
std::optional<Reply> decoded(const QByteArray& line);

}
