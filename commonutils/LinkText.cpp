#include "commonutils/LinkText.h"

#include <QRegularExpression>

namespace {

QString escaped(QStringView text)
{
    return text.toString().toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
}

QString anchor(const QString& link)
{
    const bool hasScheme = !link.startsWith(QLatin1String("www."));
    const QString target = hasScheme ? link : QStringLiteral("https://") + link;
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(target.toHtmlEscaped(), link.toHtmlEscaped());
}

}

QString htmlWithLinks(const QString& text)
{
    static const QRegularExpression link(
        QStringLiteral(R"((?:https?://|mailto:|www\.)[^\s<>"]*[^\s<>".,;:!?)\]’”])"));
    QString html;
    qsizetype end = 0;
    for (auto it = link.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        html += escaped(QStringView(text).mid(end, match.capturedStart() - end)) + anchor(match.captured());
        end = match.capturedEnd();
    }
    return html + escaped(QStringView(text).mid(end));
}
