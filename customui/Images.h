#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSizeF>
#include <QString>

// The program's pictures by name. A name is a picture's own, such as "crossImage", or a picture's and a
// state: "save-normal" (or bare "save"), "save-hover", "save-down", "save-disabled"; "-nomal" is the normal
// state too. One drawing serves all states: what it draws in the ink takes the state's colour, the rest keeps
// its own. Main thread only.

// The picture centred in a box of `size` points at `scale` device pixels a point, its proportions kept; an
// empty size stands for imageSize(). Null when no picture has the name. Pictures are kept for the
// program's life, so asking again is cheap.
QPixmap imageNamed(const QString& name, QSizeF size, qreal scale);
// The size that a picture is drawn for, in points; empty when no picture has the name.
QSizeF imageSize(const QString& name);
// The picture at any size and scale; hovered, disabled in its state of that name. Null when none has the
// name.
QIcon iconNamed(const QString& name);
