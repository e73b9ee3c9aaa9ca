#include "settings/PropertyList.h"

#include <cstdint>
#include <cstdlib>

namespace {

using Writer = QByteArray (*)(const QVariant&);

// What was read, written and read again has the same values. They are compared as XML, because the library
// shares equal data in binary lists or not, as chance has it.
void checkKept(const QVariant& value, Writer written)
{
    QString reason;
    const std::optional<QVariant> again = PropertyList::parsed(written(value), &reason);
    if (!again || PropertyList::xml(*again) != PropertyList::xml(value))
        std::abort();
}

}

// Any bytes are read as a settings file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString reason;
    const std::optional<QVariant> value = PropertyList::parsed(bytes, &reason);
    if (value.has_value() != reason.isEmpty())
        std::abort(); // each refusal has a reason
    if (!value || !PropertyList::normalized(*value).isValid())
        return 0;
    checkKept(*value, PropertyList::xml);
    checkKept(*value, PropertyList::binary);
    return 0;
}
