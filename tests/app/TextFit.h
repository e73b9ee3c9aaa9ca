#pragma once

#include <QStringList>
#include <QWidget>

// What a window shows of its labels and buttons. Texts stand as they are, wrapped ones as one.
struct TextFit {
    QStringList texts;
    QStringList cut; // those of `texts` that do not fit their place, or whose place leaves the window
};
TextFit textFitOf(const QWidget& window);
