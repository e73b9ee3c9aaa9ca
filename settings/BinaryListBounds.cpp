#include "settings/BinaryListBounds.h"

#include <cstdint>

namespace {

constexpr qsizetype kHeaderSize = 8;
constexpr qsizetype kTrailerSize = 32;
constexpr qint64 kNodeCost = 64; // bytes of memory that an object takes beside its contents

// The object's first byte: its kind above, a small count below.
enum Kind { Data = 0x4, Ascii = 0x5, Utf16 = 0x6, Array = 0xA, Set = 0xC, Dictionary = 0xD };

// Walks the objects as a reader that shares nothing meets them. Any step outside the file is a failure.
class Walk {
public:
    Walk(const QByteArray& bytes, qint64 budget)
        : m_bytes(bytes)
        , m_budget(budget)
    {
    }

    bool isBounded(int deepest)
    {
        if (m_bytes.size() < kHeaderSize + kTrailerSize)
            return false;
        const qsizetype trailer = m_bytes.size() - kTrailerSize;
        m_offsetSize = number(trailer + 6, 1);
        m_referenceSize = number(trailer + 7, 1);
        m_objects = number(trailer + 8, 8);
        m_table = number(trailer + 24, 8);
        return isObjectBounded(number(trailer + 16, 8), deepest);
    }

private:
    // Big-endian; all ones when it lies outside the file or is wider than eight bytes.
    std::uint64_t number(std::uint64_t at, std::uint64_t width) const
    {
        const auto size = static_cast<std::uint64_t>(m_bytes.size());
        if (width < 1 || width > 8 || at > size || size - at < width)
            return UINT64_MAX;
        std::uint64_t value = 0;
        for (std::uint64_t i = 0; i < width; ++i)
            value = value << 8 | static_cast<std::uint8_t>(m_bytes.constData()[at + i]);
        return value;
    }

    struct Object {
        int kind = -1;           // -1 for none: a step outside the file
        std::uint64_t at = 0;    // of its contents
        std::uint64_t count = 0; // bytes, units or references
    };

    Object object(std::uint64_t index) const
    {
        const auto size = static_cast<std::uint64_t>(m_bytes.size());
        if (index >= m_objects || m_objects > size || m_table > size)
            return {};
        std::uint64_t at = number(m_table + index * m_offsetSize, m_offsetSize);
        if (at >= size)
            return {};
        const std::uint64_t marker = number(at++, 1);
        std::uint64_t count = marker & 0xF;
        if (count == 0xF) { // the count follows as an integer of 2^n bytes
            const std::uint64_t width = 1ULL << (number(at, 1) & 0xF);
            count = number(at + 1, width);
            at += 1 + width;
        }
        return {static_cast<int>(marker >> 4), at, count};
    }

    bool isObjectBounded(std::uint64_t index, int depth)
    {
        const auto [kind, at, count] = object(index);
        switch (depth < 1 ? -1 : kind) {
        case -1:
            return false;
        case Data:
        case Ascii:
            return spend(at, count, 1);
        case Utf16:
            return spend(at, count, 2);
        case Array:
        case Set:
            return spend(at, count, m_referenceSize) && areBounded(at, count, depth);
        case Dictionary:
            return spend(at, count, 2 * m_referenceSize) && areBounded(at, 2 * count, depth) &&
                   areKeys(at, count);
        default:
            return spend(at, 0, 0);
        }
    }

    // Readers take the keys for texts that end at their first zero.
    bool areKeys(std::uint64_t at, std::uint64_t count) const
    {
        for (std::uint64_t i = 0; i < count; ++i)
            if (!isKey(object(number(at + i * m_referenceSize, m_referenceSize))))
                return false;
        return true;
    }

    bool isKey(const Object& key) const
    {
        const std::uint64_t width = key.kind == Utf16 ? 2 : 1;
        if (key.kind != Ascii && key.kind != Utf16)
            return false;
        for (std::uint64_t i = 0; i < key.count; ++i)
            if (const std::uint64_t unit = number(key.at + i * width, width); unit == 0 || unit == UINT64_MAX)
                return false;
        return true;
    }

    bool areBounded(std::uint64_t at, std::uint64_t count, int depth)
    {
        for (std::uint64_t i = 0; i < count; ++i)
            if (!isObjectBounded(number(at + i * m_referenceSize, m_referenceSize), depth - 1))
                return false;
        return true;
    }

    // Pays for an object; false when its contents leave the file or the budget is spent.
    bool spend(std::uint64_t at, std::uint64_t count, std::uint64_t width)
    {
        const auto size = static_cast<std::uint64_t>(m_bytes.size());
        if (at > size || count > size || (count > 0 && count * width > size - at))
            return false;
        m_budget -= kNodeCost + static_cast<qint64>(count * width);
        return m_budget >= 0;
    }

    const QByteArray& m_bytes;
    qint64 m_budget;
    std::uint64_t m_offsetSize = 0;
    std::uint64_t m_referenceSize = 0;
    std::uint64_t m_objects = 0;
    std::uint64_t m_table = 0;
};

}

bool isBinaryListBounded(const QByteArray& bytes, int deepest, qint64 largest)
{
    return Walk(bytes, largest).isBounded(deepest);
}
