#pragma once

#include <QFont>
#include <QString>
#include <QVariantMap>

// How an alert's message is measured and marked.
namespace AlertRules {

constexpr double kMessageHeight = 70; // points that the message has without making the alert larger

// By how much the alert grows for a message in a width, in points. Kept: the lines are estimated from the
// first character that is not blank.
double growthFor(const QString& message, const QFont& font, double width);

// The message as HTML, with words made links or coloured as a record of attributes asks: "attributesName" is
// "linkAttributes" (words "linkReplaceString", "links" with an "url" each) or "highlightAttributes" (words
// "highlightReplaceString", "highlightColors" with a "highlightColor" each). Any other record marks nothing.
QString markedMessage(const QString& message, const QVariantMap& attributes);

// The text as HTML with words made links, in the order of the addresses; every place of a word counts.
QString addURLs(const QString& text, const QStringList& urls, const QStringList& forStrings);

}
