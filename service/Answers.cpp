#include "service/Answers.h"

#include "service/Log.h"
#include "service/Pages.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <httplib.h>

namespace {

// A fault that goes by itself says when to come back.
void setStatus(httplib::Response& response, int status)
{
    response.status = status;
    if (status == 429 || status == 503)
        response.set_header("Retry-After", "60");
}

}

void Answers::page(httplib::Response& response, int status, const std::string& html)
{
    setStatus(response, status);
    response.set_content(html, "text/html; charset=utf-8");
}

void Answers::json(httplib::Response& response, int status, const QJsonObject& object)
{
    setStatus(response, status);
    response.set_content(
        QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString(), "application/json");
}

void Answers::refuseUpload(httplib::Response& response, const Fault& fault)
{
    logLine("an upload was refused with " + std::to_string(fault.status) + ": " + fault.reason);
    json(response, fault.status, {{QStringLiteral("error"), QString::fromStdString(fault.reason)}});
}

void Answers::refusePage(httplib::Response& response, const Fault& fault)
{
    if (fault.status != 404)
        logLine("a request was refused with " + std::to_string(fault.status) + ": " + fault.reason);
    plain(response, fault.status);
}

void Answers::plain(httplib::Response& response, int status)
{
    if (status == 404)
        page(response, status, Pages::message("Nothing here", "The link is wrong, or the picture is gone."));
    else if (status == 429)
        page(response, status, Pages::message("Too many requests", "Please try again in a minute."));
    else if (status >= 500)
        page(response, status,
            Pages::message("Not now", "The service cannot do this. Please try again later."));
    else
        page(response, status,
            Pages::message("Not possible", "The service answers with " + std::to_string(status) + "."));
}
