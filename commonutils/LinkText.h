#pragma once

#include <QString>

// Plain text as HTML with its links made clickable: what begins with a scheme or "www." up to the next space,
// without the punctuation that ends a sentence. Line breaks stay.
QString htmlWithLinks(const QString& text);
