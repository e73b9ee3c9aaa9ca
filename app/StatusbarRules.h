#pragma once

#include <QKeySequence>
#include <QString>

// How the status menu names pictures and keys.
namespace StatusbarRules {

// The picture of an entry that is not under the pointer any more.
QString restingImage(const QString& imageName);
// The picture of the entry under the pointer. Kept: in the Tools menu it is the normal one, so that the
// pictures of tools do not change.
QString highlightedImage(const QString& imageName, bool isInTools);

// What stands beside an entry for a hot-key string, such as "cmd 1"; empty for none. Command is the Super
// key.
QKeySequence keyEquivalent(const QString& hotKey);

}
