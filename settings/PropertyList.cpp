#include "settings/PropertyList.h"

#include "settings/BinaryListBounds.h"

#include <QDateTime>
#include <QXmlStreamReader>

#include <plist/plist.h>

#include <cstdlib>
#include <locale.h>
#include <memory>
#if __has_include(<xlocale.h>)
#include <xlocale.h>
#endif

namespace {

struct FreeNode {
    void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

constexpr qint64 kSecondsTo2001 = 978307200; // property lists count dates from 2001-01-01, Unix from 1970

// The library reads and writes numbers in the thread's locale; property lists have points, never commas.
class PlainNumbers {
public:
    PlainNumbers()
        : m_before(uselocale(plainLocale()))
    {
    }
    ~PlainNumbers() { uselocale(m_before); }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    static locale_t plainLocale()
    {
        static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
        return plain;
    }
    locale_t m_before;
};

bool isXmlCharacter(QChar c)
{
    const char16_t code = c.unicode();
    return code >= 0x20 ? code < 0xFFFE : code == '\t' || code == '\n' || code == '\r';
}

QString xmlText(QString text)
{
    text.removeIf([](QChar c) { return !isXmlCharacter(c); });
    return QString::fromUtf8(text.toUtf8()); // halves of surrogate pairs become question marks
}

QVariant wholeSeconds(const QDateTime& date)
{
    return date.isValid() ? QDateTime::fromSecsSinceEpoch(date.toSecsSinceEpoch(), Qt::UTC) : QVariant();
}

QVariant normalizedAt(const QVariant& value, int depth);

QVariant normalizedList(const QVariantList& list, int depth)
{
    QVariantList result;
    for (const QVariant& element : list)
        if (QVariant kept = normalizedAt(element, depth + 1); kept.isValid())
            result.append(std::move(kept));
    return result;
}

QVariant normalizedMap(const QVariantMap& map, int depth)
{
    QVariantMap result;
    for (auto it = map.begin(); it != map.end(); ++it)
        if (const QVariant kept = normalizedAt(it.value(), depth + 1); kept.isValid())
            result.insert(xmlText(it.key()), kept);
    return result;
}

QVariant normalizedAt(const QVariant& value, int depth)
{
    if (depth > PropertyList::kDeepest)
        return {};
    switch (value.typeId()) {
    case QMetaType::QString:
        return xmlText(value.toString());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QVariant::fromValue(value.toLongLong());
    case QMetaType::Float:
        return value.toDouble();
    case QMetaType::Bool:
    case QMetaType::Double:
    case QMetaType::QByteArray:
        return value;
    case QMetaType::QDateTime:
        return wholeSeconds(value.toDateTime());
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return normalizedList(value.toList(), depth);
    case QMetaType::QVariantMap:
        return normalizedMap(value.toMap(), depth);
    default:
        return {};
    }
}

plist_t nodeFrom(const QVariant& value);

plist_t arrayFrom(const QVariantList& list)
{
    plist_t array = plist_new_array();
    for (const QVariant& element : list)
        plist_array_append_item(array, nodeFrom(element));
    return array;
}

plist_t dictionaryFrom(const QVariantMap& map)
{
    plist_t dictionary = plist_new_dict();
    for (auto it = map.begin(); it != map.end(); ++it)
        plist_dict_set_item(dictionary, it.key().toUtf8().constData(), nodeFrom(it.value()));
    return dictionary;
}

plist_t dateFrom(const QDateTime& date)
{
    return plist_new_date(static_cast<int32_t>(date.toSecsSinceEpoch() - kSecondsTo2001), 0);
}

plist_t dataFrom(const QByteArray& data)
{
    return plist_new_data(data.constData(), static_cast<uint64_t>(data.size()));
}

// `value` is normalized. The caller owns the node.
plist_t nodeFrom(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool());
    case QMetaType::LongLong:
        return plist_new_uint(static_cast<uint64_t>(value.toLongLong()));
    case QMetaType::Double:
        return plist_new_real(value.toDouble());
    case QMetaType::QByteArray:
        return dataFrom(value.toByteArray());
    case QMetaType::QDateTime:
        return dateFrom(value.toDateTime());
    case QMetaType::QVariantList:
        return arrayFrom(value.toList());
    case QMetaType::QVariantMap:
        return dictionaryFrom(value.toMap());
    default:
        return plist_new_string(value.toString().toUtf8().constData());
    }
}

QVariant valueFrom(plist_t node);

QVariant listFrom(plist_t node)
{
    QVariantList list;
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    plist_t element = nullptr;
    for (plist_array_next_item(node, position, &element); element;
         plist_array_next_item(node, position, &element))
        list.append(valueFrom(element));
    std::free(position);
    return list;
}

QVariant mapFrom(plist_t node)
{
    QVariantMap map;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    char* key = nullptr;
    plist_t element = nullptr;
    for (plist_dict_next_item(node, position, &key, &element); element;
         plist_dict_next_item(node, position, &key, &element)) {
        map.insert(QString::fromUtf8(key), valueFrom(element));
        std::free(key);
    }
    std::free(position);
    return map;
}

template <class Value, class Read>
Value scalar(plist_t node, Read read)
{
    Value value{};
    read(node, &value);
    return value;
}

QString textFrom(plist_t node)
{
    uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return QString::fromUtf8(text, static_cast<qsizetype>(length));
}

QByteArray bytesFrom(plist_t node)
{
    uint64_t length = 0;
    const char* data = plist_get_data_ptr(node, &length);
    return {data, static_cast<qsizetype>(length)};
}

QDateTime dateTimeFrom(plist_t node)
{
    int32_t seconds = 0, microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return QDateTime::fromSecsSinceEpoch(seconds + kSecondsTo2001, Qt::UTC);
}

QVariant valueFrom(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        return scalar<uint8_t>(node, plist_get_bool_val) != 0;
    case PLIST_UINT:
        return static_cast<qint64>(scalar<uint64_t>(node, plist_get_uint_val));
    case PLIST_REAL:
        return scalar<double>(node, plist_get_real_val);
    case PLIST_STRING:
        return textFrom(node);
    case PLIST_DATA:
        return bytesFrom(node);
    case PLIST_DATE:
        return dateTimeFrom(node);
    case PLIST_ARRAY:
        return listFrom(node);
    case PLIST_DICT:
        return mapFrom(node);
    default:
        return {};
    }
}

// The library takes documents that are cut short and follows any depth with its stack, so both are settled
// first.
QString xmlProblem(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        if (depth > PropertyList::kDeepest + 1) // the root element holds the outermost value
            return QStringLiteral("nested too deeply");
    }
    return reader.hasError() ? reader.errorString() : QString();
}

QString problemOf(const QByteArray& bytes)
{
    if (bytes.size() > PropertyList::kLargest)
        return QStringLiteral("larger than 16 MiB");
    if (!bytes.startsWith("bplist"))
        return xmlProblem(bytes);
    if (!isBinaryListBounded(bytes, PropertyList::kDeepest, 4 * PropertyList::kLargest))
        return QStringLiteral("not a whole binary property list");
    return {};
}

using Writer = void (*)(plist_t, char**, uint32_t*);

QByteArray written(const QVariant& value, Writer write)
{
    const QVariant plain = PropertyList::normalized(value);
    if (!plain.isValid())
        return {};
    const PlainNumbers plainNumbers;
    const Node node(nodeFrom(plain));
    char* text = nullptr;
    uint32_t length = 0;
    write(node.get(), &text, &length);
    QByteArray result(text, static_cast<qsizetype>(length));
    std::free(text);
    return result;
}

}

std::optional<QVariant> PropertyList::parsed(const QByteArray& bytes, QString* reason)
{
    *reason = problemOf(bytes);
    if (!reason->isEmpty())
        return std::nullopt;
    const PlainNumbers plainNumbers;
    plist_t node = nullptr;
    plist_from_memory(bytes.constData(), static_cast<uint32_t>(bytes.size()), &node);
    const Node owner(node);
    if (node)
        return valueFrom(node);
    *reason = QStringLiteral("not a property list");
    return std::nullopt;
}

std::optional<QVariantMap> PropertyList::parsedDictionary(const QByteArray& bytes, QString* reason)
{
    const std::optional<QVariant> value = parsed(bytes, reason);
    if (!value)
        return std::nullopt;
    if (value->typeId() == QMetaType::QVariantMap)
        return value->toMap();
    *reason = QStringLiteral("not a dictionary");
    return std::nullopt;
}

QByteArray PropertyList::xml(const QVariant& value)
{
    return written(value, plist_to_xml);
}

QByteArray PropertyList::binary(const QVariant& value)
{
    return written(value, plist_to_bin);
}

QVariant PropertyList::normalized(const QVariant& value)
{
    return normalizedAt(value, 1);
}
