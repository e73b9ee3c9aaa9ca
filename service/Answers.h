#pragma once

#include "service/Fault.h"

#include <string>

class QJsonObject;
namespace httplib {
struct Response;
}

// The forms that an answer takes.
namespace Answers {

void page(httplib::Response& response, int status, const std::string& html);
void json(httplib::Response& response, int status, const QJsonObject& object);
// To a sender; logged.
void refuseUpload(httplib::Response& response, const Fault& fault);
// To who looks at pictures: logged unless the picture is only unknown.
void refusePage(httplib::Response& response, const Fault& fault);
// A page for a status that nobody gave words to.
void plain(httplib::Response& response, int status);

}
