#include "output/AlertRules.h"

#include <QColor>
#include <QFontMetricsF>

#include <algorithm>

namespace {

// A word and what stands around each place of it.
struct Mark {
    QString word;
    QString begin, end;
};

Mark linkMark(const QString& word, const QString& url)
{
    return {word, QStringLiteral("<a href=\"%1\" style=\"color:#2a7bf4\">").arg(url.toHtmlEscaped()),
        QStringLiteral("</a>")};
}

Mark colourMark(const QString& word, const QColor& colour)
{
    return {word, QStringLiteral("<span style=\"color:%1\">").arg(colour.name()), QStringLiteral("</span>")};
}

QString escaped(QStringView text)
{
    return text.toString().toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br/>"));
}

// The mark whose word stands at a place of the text; null for none.
const Mark* markAt(const QString& text, qsizetype place, const QList<Mark>& marks)
{
    const auto stands = [&](const Mark& mark) {
        return !mark.word.isEmpty() && QStringView(text).mid(place).startsWith(mark.word);
    };
    const auto found = std::find_if(marks.begin(), marks.end(), stands);
    return found == marks.end() ? nullptr : &*found;
}

QString marked(const QString& text, const QList<Mark>& marks)
{
    QString html;
    qsizetype plain = 0; // where the text begins that is not yet in `html`
    for (qsizetype i = 0; i < text.size();) {
        const Mark* mark = markAt(text, i, marks);
        if (!mark) {
            ++i;
            continue;
        }
        html +=
            escaped(QStringView(text).mid(plain, i - plain)) + mark->begin + escaped(mark->word) + mark->end;
        plain = i += mark->word.size();
    }
    return html + escaped(QStringView(text).mid(plain));
}

// A record may hold one thing where it could hold a list.
QVariantList listOf(const QVariant& value)
{
    return value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QVariantMap
               ? QVariantList{value}
               : value.toList();
}

}

namespace AlertRules {

double growthFor(const QString& message, const QFont& font, double width)
{
    const QFontMetricsF metrics(font);
    const auto isBlank = [](QChar c) { return c.isSpace(); };
    const auto first = std::find_if_not(message.begin(), message.end(), isBlank);
    const double characterWidth = first == message.end() ? 0 : metrics.horizontalAdvance(*first);
    if (characterWidth <= 0)
        return 0;
    const auto charactersPerLine = qsizetype(width / characterWidth + 1);
    const qsizetype lines = message.size() / charactersPerLine + 1;
    return std::max(metrics.height() * double(lines) - kMessageHeight, 0.0);
}

QString markedMessage(const QString& message, const QVariantMap& attributes)
{
    const QString name = attributes.value(QStringLiteral("attributesName")).toString();
    const bool areLinks = name == QLatin1String("linkAttributes");
    if (!areLinks && name != QLatin1String("highlightAttributes"))
        return marked(message, {});
    const QVariantList words = listOf(attributes.value(
        areLinks ? QStringLiteral("linkReplaceString") : QStringLiteral("highlightReplaceString")));
    const QVariantList values =
        listOf(attributes.value(areLinks ? QStringLiteral("links") : QStringLiteral("highlightColors")));
    QList<Mark> marks;
    for (qsizetype i = 0; i < std::min(words.size(), values.size()); ++i) {
        const QVariantMap value = values[i].toMap();
        const QString word = words[i].toString();
        marks << (areLinks ? linkMark(word, value.value(QStringLiteral("url")).toString())
                           : colourMark(word, value.value(QStringLiteral("highlightColor")).value<QColor>()));
    }
    return marked(message, marks);
}

QString addURLs(const QString& text, const QStringList& urls, const QStringList& forStrings)
{
    QList<Mark> marks;
    for (qsizetype i = 0; i < std::min(urls.size(), forStrings.size()); ++i)
        marks << linkMark(forStrings[i], urls[i]);
    return marked(text, marks);
}

}
