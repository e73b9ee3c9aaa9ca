#include "commonutils/CommFeedback.h"

#include "commonutils/CommUtils.h"

#include <QUrl>

void CommFeedback::submit()
{
    if (const QString link = linkOf(CommUtils::appInfo()); !link.isEmpty())
        CommUtils::OpenURL(link);
}

QString CommFeedback::linkOf(const CommAppInfo& info)
{
    const bool isMail = info.feedbackURL.startsWith(QLatin1String("mailto:"));
    if (!isMail || info.feedbackURL.contains(QLatin1Char('?')))
        return info.feedbackURL;
    const QString subject = info.appLocalizedName + QLatin1Char(' ') + info.appVersion;
    return info.feedbackURL + QStringLiteral("?subject=") +
           QString::fromLatin1(QUrl::toPercentEncoding(subject));
}
