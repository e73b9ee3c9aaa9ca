#pragma once

#include "service/PictureInfo.h"

#include <string>

// What people see of the service: HTML pages that hold no script and load nothing from elsewhere. Titles come
// in as they were sent.
namespace Pages {

// `path` is the page's own, such as "/p/<name>"; the picture's bytes are below it. `base` begins absolute
// links.
std::string picture(const PictureInfo& info, const std::string& base, const std::string& path);
// `remark`, when not empty, says why the last password was not taken.
std::string passwordForm(const std::string& path, const std::string& remark);
std::string deleteForm(const std::string& path);
// A heading and a sentence.
std::string message(const std::string& heading, const std::string& sentence);
std::string styleSheet();

// Text as it may stand between tags and in quoted attributes.
std::string escaped(const std::string& text);

}
