#include "commonutils/CommUtils.h"

#include "commonutils/CommLog.h"
#include "platform/Workspace.h"

namespace {

CommAppInfo s_info;
Workspace* s_workspace = nullptr;

bool isForBrowser(const QUrl& link)
{
    static const QStringList schemes{
        QStringLiteral("https"), QStringLiteral("http"), QStringLiteral("mailto")};
    return link.isValid() && schemes.contains(link.scheme());
}

}

void CommUtils::initWithCommAppInfo(const CommAppInfo& info, Workspace& workspace)
{
    s_info = info;
    s_workspace = &workspace;
}

void CommUtils::setAppInfo(const CommAppInfo& info)
{
    s_info = info;
}

const CommAppInfo& CommUtils::appInfo()
{
    return s_info;
}

void CommUtils::dispose()
{
    s_info = {};
    s_workspace = nullptr;
}

bool CommUtils::OpenURL(const QString& link)
{
    const QUrl url(link, QUrl::TolerantMode);
    const bool isOpened = s_workspace && isForBrowser(url) && s_workspace->openLink(url);
    if (!isOpened)
        CommLog::log(QStringLiteral("the link cannot be opened: %1"), link);
    return isOpened;
}
