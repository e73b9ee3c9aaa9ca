#include "service/PictureHandler.h"

#include "service/Answers.h"
#include "service/ClientAddress.h"
#include "service/Log.h"
#include "service/Metrics.h"
#include "service/Pages.h"
#include "service/PictureStorage.h"
#include "service/Secrets.h"
#include "service/ServiceOptions.h"

#include <QUrlQuery>

#include <httplib.h>

#include <algorithm>
#include <cstring>
#include <ctime>

namespace {

constexpr const char* kCookie = "kestrel";

std::string pathOf(const std::string& id)
{
    return "/p/" + id;
}

// The values of our own cookie; a browser may send several.
std::vector<std::string> cookieValues(const httplib::Request& request)
{
    std::vector<std::string> values;
    for (const QString& pair :
        QString::fromStdString(request.get_header_value("Cookie")).split(QLatin1Char(';'))) {
        const QString trimmed = pair.trimmed();
        if (trimmed.startsWith(QLatin1String(kCookie) + QLatin1Char('=')))
            values.push_back(trimmed.mid(qsizetype(std::strlen(kCookie)) + 1).toStdString());
    }
    return values;
}

std::string passwordIn(const std::string& body)
{
    QString form = QString::fromStdString(body);
    form.replace(QLatin1Char('+'), QLatin1String("%20"));
    return QUrlQuery(form).queryItemValue(QStringLiteral("password"), QUrl::FullyDecoded).toStdString();
}

}

PictureHandler::PictureHandler(const ServiceOptions& options, PictureStorage& storage, Metrics& metrics)
    : m_options(options)
    , m_storage(storage)
    , m_metrics(metrics)
    , m_secret(Secrets::unguessableName())
    , m_guard(options.passwordTries)
{
}

void PictureHandler::showPicture(const Request& request, Response& response)
{
    const auto info = named(request, response);
    if (!info)
        return;
    const std::string path = pathOf(request.matches[1]);
    if (isUnlocked(request, *info))
        Answers::page(response, 200, Pages::picture(*info, m_base, path));
    else
        Answers::page(response, 200, Pages::passwordForm(path, {}));
}

void PictureHandler::unlock(const Request& request, Response& response, const std::string& form)
{
    const auto info = named(request, response);
    if (!info)
        return;
    const std::string id = request.matches[1];
    const PasswordGuard::Names names{"picture " + id, ClientAddress::asker(request, m_options.trustedProxy)};
    if (!m_guard.begin(names, PasswordGuard::Clock::now())) {
        m_metrics.add(Metrics::PasswordsHeld);
        return Answers::page(response, 429,
            Pages::passwordForm(pathOf(id), "Too many wrong passwords. Please try again later."));
    }
    const bool isRight = Secrets::isPassword(passwordIn(form), info->passwordHash);
    m_guard.end(names, isRight, PasswordGuard::Clock::now());
    m_metrics.add(isRight ? Metrics::PasswordsRight : Metrics::PasswordsWrong);
    if (isRight)
        rememberUnlocked(id, *info, response);
    else
        Answers::page(response, 403, Pages::passwordForm(pathOf(id), "This is not the password."));
}

void PictureHandler::rememberUnlocked(
    const std::string& id, const PictureInfo& info, Response& response) const
{
    response.set_header("Set-Cookie", std::string(kCookie) + "=" + unlockMark(id, info) +
                                          "; Path=" + pathOf(id) + "; HttpOnly; SameSite=Lax" +
                                          (m_base.starts_with("https://") ? "; Secure" : ""));
    response.set_redirect(pathOf(id), 303);
}

void PictureHandler::sendPicture(const Request& request, Response& response)
{
    const auto info = named(request, response);
    if (!info)
        return;
    if (!isUnlocked(request, *info))
        return Answers::page(response, 403,
            Pages::message("Private picture", "Open the picture's page first and enter its password."));
    response.status = 200;
    m_metrics.add(Metrics::PicturesSent);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(m_options.uploadSeconds);
    response.set_content_provider(size_t(info->bytes), info->contentType,
        [this, end, id = request.matches[1].str()](size_t offset, size_t length, httplib::DataSink& sink) {
            const auto take = [&sink, end](const char* bytes, size_t count) {
                return std::chrono::steady_clock::now() < end && sink.write(bytes, count);
            };
            const Fault fault = m_storage.read(id, std::int64_t(offset), std::int64_t(length), take);
            if (fault)
                logLine("a picture was not sent: " + fault.reason);
            return !fault;
        });
}

void PictureHandler::askToDelete(const Request& request, Response& response)
{
    if (mayDelete(request, response))
        Answers::page(response, 200, Pages::deleteForm(request.path));
}

void PictureHandler::deletePicture(const Request& request, Response& response, const std::string&)
{
    if (!mayDelete(request, response))
        return;
    if (const Fault fault = m_storage.remove(request.matches[1]))
        return Answers::refusePage(response, fault);
    m_metrics.add(Metrics::PicturesDeleted);
    Answers::page(
        response, 200, Pages::message("Deleted", "The picture is gone and its link no longer works."));
}

std::optional<PictureInfo> PictureHandler::named(const Request& request, Response& response)
{
    PictureInfo info;
    Fault fault = m_storage.find(request.matches[1], info);
    if (!fault && info.isExpired(std::time(nullptr)))
        fault = {404, "the picture has expired"};
    if (!fault)
        return info;
    Answers::refusePage(response, fault);
    return {};
}

bool PictureHandler::mayDelete(const Request& request, Response& response)
{
    const auto info = named(request, response);
    if (!info)
        return false;
    const bool isSender =
        Secrets::isEqual(Secrets::tokenHash(request.matches[2].str()), info->deleteTokenHash);
    if (!isSender)
        Answers::plain(response, 404);
    return isSender;
}

bool PictureHandler::isUnlocked(const Request& request, const PictureInfo& info) const
{
    if (info.passwordHash.empty())
        return true;
    const std::string mark = unlockMark(request.matches[1], info);
    const auto values = cookieValues(request);
    return std::any_of(values.begin(), values.end(),
        [&mark](const std::string& value) { return Secrets::isEqual(value, mark); });
}

std::string PictureHandler::unlockMark(const std::string& id, const PictureInfo& info) const
{
    return Secrets::signature(m_secret, id + info.passwordHash);
}
