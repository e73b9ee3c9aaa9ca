#include "settings/XMLParser.h"

#include <QByteArray>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr qsizetype kLongestKeywords = 64;

}

// Any bytes are read as a language file, which is then asked for the words at their end.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    XMLParser parser;
    XMLError error;
    const bool isRead = parser.parse(bytes, &error);
    if (isRead != error.message.isEmpty())
        std::abort(); // each refusal has a reason
    const QString keywords = QString::fromUtf8(bytes.last(std::min(bytes.size(), kLongestKeywords)));
    parser.getValueForKeywords(keywords);
    parser.getValuesForKey(keywords);
    const bool hasName = !parser.getValueForKeywords(u"LangName").isNull();
    if (hasName && !isRead)
        std::abort(); // nothing remains of a refused file
    return 0;
}
