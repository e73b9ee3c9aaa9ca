#pragma once

#include <QPalette>

class QWidget;

// The colours of our windows with forms: a light panel, white fields, dark ink, whatever the desktop's own
// are.
QPalette panelPalette();
// Makes a widget a line of one point across a panel.
void makeSeparator(QWidget& line);
// Gives the tick of a check box and the dot of a radio button the accent's colour.
void markInAccent(QWidget& button);
