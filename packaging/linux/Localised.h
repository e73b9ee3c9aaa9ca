#pragma once

#include <QString>

#include <functional>
#include <vector>

// A language of the program as the desktop writes it ("pt_BR"), and its texts by their keys.
struct Translation {
    QString locale; // empty for the language that stands without one
    std::function<QString(QStringView key)> text;
};

// The text with each line that holds a marker "[#Group:Key#]" once for each translation: a line
// "Name=[#...#]" of a desktop entry becomes "Name[de]=...", an element "<name>[#...#]</name>" becomes <name
// xml:lang="de">...</name>. A text that a language has not, or has as the first one does, gets no line.
QString localised(const QString& text, const std::vector<Translation>& translations);

// The languages of the folder with English first and without a locale; empty when English cannot be read.
std::vector<Translation> translationsIn(const QString& folder);
