#pragma once

#include <QByteArray>
#include <QString>

// An icon file of macOS, every size it knows drawn from one SVG; empty when the SVG cannot be read.
QByteArray iconFile(const QString& svgPath);
