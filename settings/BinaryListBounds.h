#pragma once

#include <QByteArray>

// Whether a binary property list can be read safely: whole, its keys plain texts and, unfolded, no deeper
// than `deepest` and no larger than `largest` bytes. Objects of a binary list may be shared or hold
// themselves, so a short file can unfold without end.
bool isBinaryListBounded(const QByteArray& bytes, int deepest, qint64 largest);
