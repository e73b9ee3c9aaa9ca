#include "output/UploadRules.h"

#include "commonutils/CommUpload.h"

#include <QFileInfo>

#include <algorithm>

QString UploadRules::displayName(const QString& path, const QString& title)
{
    const QFileInfo file(path);
    if (file.fileName().isEmpty())
        return title.isEmpty() ? QStringLiteral("undefineFileName") : title;
    const QString name = file.completeBaseName();
    return name == title ? title + QStringLiteral("(1)") : name;
}

QString UploadRules::linkFor(const UploadResult& result, unsigned shareType)
{
    switch (shareType) {
    case kPlain:
        return result.link;
    case kFacebook:
        return result.share[QStringLiteral("facebook")];
    case kGoogle:
        return result.share[QStringLiteral("google")];
    case kTwitter:
        return result.share[QStringLiteral("twitter")];
    case kPinterest:
        return result.share[QStringLiteral("pinterest")];
    default:
        return {};
    }
}

double UploadRules::shownProgress(double fraction)
{
    return std::min(fraction, 0.99);
}

bool UploadRules::isCancellation(const QString& error)
{
    return error.contains(QString::fromUtf16(CommUpload::kCancelled));
}

QString UploadRules::temporaryPath(const QString& savePath)
{
    const QFileInfo saved(savePath);
    const QString base = saved.path() + QLatin1Char('/') + saved.completeBaseName();
    QString path = base + QStringLiteral(".jpg");
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = QStringLiteral("%1 (%2).jpg").arg(base).arg(i);
    return path;
}
