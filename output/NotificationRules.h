#pragma once

#include "geometry/ZRRect.h"

#include <QFont>
#include <QStringList>

// When notices come, move and go, and where they stand: milliseconds, and points of the main screen with the
// origin at its bottom-left corner.
namespace NotificationRules {

constexpr int kSlideMs = 250;        // every slide, and the fading out
constexpr int kBeforeOthersMs = 250; // how long a notice waits that finds others on the screen
constexpr int kShownMs = 5000;       // a plain notice, from its start
constexpr int kShownLongerMs = 3000; // and from the moment in which it has made room for another one
constexpr int kFrameMs = 16;         // between two steps of a slide
constexpr double kWidth = 345;       // of a plain notice
constexpr double kHeight = 65;
constexpr double kBelowTop = 37; // from the top of the screen to the top of a new notice
constexpr double kGap = 10;      // to the right edge of the screen, and between two notices

// Outside, at the right edge of the screen and without any width.
ZRRect hiddenAtRightEdge(ZRSize screen, ZRSize notice);
// Where a new notice stands.
ZRRect standing(ZRSize screen, ZRSize notice);
// The same notice, moved down by a new one of that height.
ZRRect belowNewOne(ZRRect standing, double newHeight);
// Slid out to the right, without any width.
ZRRect slidOut(ZRRect standing);
// The same place on a main screen of another size: notices keep to its top right corner.
ZRRect onOtherScreen(ZRRect frame, ZRSize before, ZRSize now);

// How far a movement is after a part of its time: both 0 to 1, slow at its beginning and its end.
double eased(double time);
ZRRect between(ZRRect from, ZRRect to, double part);

// The text in at most so many lines of a width; one that is longer is cut in its middle.
QStringList linesCutInMiddle(const QString& text, const QFont& font, double width, int count);

}
