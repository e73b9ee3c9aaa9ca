#pragma once

#include "platform/macos/BookmarkService.h"

// The best kind of bookmark that the system makes: a scoped one, else a plain one, else the path itself.
namespace BookmarkRules {

// Empty where there is no such file.
QByteArray dataFor(const BookmarkService& service, const QString& path);
// As FileBookmarks::resolved.
QString resolved(BookmarkService& service, const QByteArray& bookmark, QByteArray* renewed);

}
