#include "output/NotificationRules.h"

#include <QTextLayout>

#include <algorithm>

namespace {

constexpr QChar kEllipsis(0x2026);
constexpr qsizetype kLongest = 2000; // characters; more fit no notice

// The text's lines in a width; not much further than `enough` of them.
QStringList linesOf(const QString& text, const QFont& font, double width, int enough)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
        if (lines.size() > enough)
            break;
    }
    layout.endLayout();
    return lines;
}

// So many characters of the text, from its beginning and its end in equal parts.
QString shortened(const QString& text, qsizetype characters)
{
    const qsizetype head = (characters + 1) / 2;
    return text.left(head) + kEllipsis + text.right(characters - head);
}

}

namespace NotificationRules {

ZRRect hiddenAtRightEdge(ZRSize screen, ZRSize notice)
{
    return {screen.width, screen.height - kBelowTop - notice.height, 0, notice.height};
}

ZRRect standing(ZRSize screen, ZRSize notice)
{
    return {screen.width - notice.width - kGap, screen.height - kBelowTop - notice.height, notice.width,
        notice.height};
}

ZRRect belowNewOne(ZRRect standing, double newHeight)
{
    return standing.translated(0, -newHeight - kGap);
}

ZRRect slidOut(ZRRect standing)
{
    return {standing.maxX() + kGap, standing.y, 0, standing.height};
}

ZRRect onOtherScreen(ZRRect frame, ZRSize before, ZRSize now)
{
    return frame.translated(now.width - before.width, now.height - before.height);
}

double eased(double time)
{
    const double t = std::clamp(time, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

ZRRect between(ZRRect from, ZRRect to, double part)
{
    const auto mixed = [part](double a, double b) { return a + (b - a) * part; };
    return {
        mixed(from.x, to.x), mixed(from.y, to.y), mixed(from.width, to.width), mixed(from.height, to.height)};
}

QStringList linesCutInMiddle(const QString& text, const QFont& font, double width, int count)
{
    if (text.isEmpty())
        return {};
    if (text.size() <= kLongest) {
        const QStringList lines = linesOf(text, font, width, count);
        if (lines.size() <= count)
            return lines;
    }
    qsizetype fits = 0;
    qsizetype tooMany = std::min(text.size(), kLongest);
    while (fits + 1 < tooMany) {
        const qsizetype middle = (fits + tooMany) / 2;
        (linesOf(shortened(text, middle), font, width, count).size() <= count ? fits : tooMany) = middle;
    }
    return linesOf(shortened(text, fits), font, width, count);
}

}
