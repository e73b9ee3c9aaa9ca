#include "settings/PropertyList.h"

#include <QDateTime>
#include <QSize>

#include <gtest/gtest.h>

namespace {

using PropertyList::binary;
using PropertyList::parsed;
using PropertyList::xml;

QVariantMap sample()
{
    return {
        {QStringLiteral("text"), QStringLiteral("é <b> & \"q\" 漢字")},
        {QStringLiteral("empty"), QString()},
        {QStringLiteral("yes"), true},
        {QStringLiteral("one"), qint64(1)},
        {QStringLiteral("negative"), qint64(-7)},
        {QStringLiteral("largest"), std::numeric_limits<qint64>::max()},
        {QStringLiteral("real"), 0.1 + 0.2},
        {QStringLiteral("whole real"), 3.0},
        {QStringLiteral("data"), QByteArray("\0\xff\n", 3)},
        {QStringLiteral("date"), QDateTime::fromSecsSinceEpoch(1605880000, Qt::UTC)},
        {QStringLiteral("list"), QVariantList{qint64(1), QStringLiteral("two"), QVariantList{}}},
        {QStringLiteral("map"), QVariantMap{{QStringLiteral("inner"), false}}},
    };
}

bool isAccepted(const QByteArray& bytes)
{
    QString reason;
    const bool isParsed = parsed(bytes, &reason).has_value();
    EXPECT_NE(isParsed, !reason.isEmpty());
    return isParsed;
}

QByteArray nestedXml(int depth)
{
    return "<plist>" + QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth) +
           "</plist>";
}

// A binary list of `levels` arrays, each of which holds the next one twice; the last holds the first when
// `isLoop`.
QByteArray foldedBinary(int levels, bool isLoop)
{
    QByteArray bytes("bplist00"), table;
    for (int level = 0; level < levels; ++level) {
        table.append(static_cast<char>(bytes.size()));
        const bool isLast = level == levels - 1;
        const char next = static_cast<char>(isLast ? 0 : level + 1);
        bytes.append(isLast && !isLoop ? QByteArray(1, '\x09') : QByteArray("\xA2") + next + next);
    }
    const char tableOffset = static_cast<char>(bytes.size());
    const QByteArray zeros(7, '\0');
    return bytes + table + QByteArray(6, '\0') + "\x01\x01" + zeros + static_cast<char>(levels) + zeros +
           '\0' + zeros + tableOffset;
}

}

TEST(PropertyList, ReadsBackWhatItWroteWithItsTypes)
{
    for (const QByteArray& bytes : {xml(sample()), binary(sample())}) {
        QString reason;
        const auto map = PropertyList::parsedDictionary(bytes, &reason);
        ASSERT_TRUE(map) << reason.toStdString();
        EXPECT_EQ(map->keys(), sample().keys());
        for (const QString& key : map->keys()) {
            SCOPED_TRACE(key.toStdString());
            EXPECT_EQ(map->value(key).typeId(), sample().value(key).typeId());
            EXPECT_EQ(map->value(key), sample().value(key));
        }
    }
}

TEST(PropertyList, LeavesOutWhatNoListHolds)
{
    const struct {
        QVariant given, expected;
    } cases[] = {
        {7, qint64(7)},
        {2.5F, 2.5},
        {QStringList{QStringLiteral("a")}, QVariantList{QStringLiteral("a")}},
        {QStringLiteral("a\x01\x1f\tb"), QStringLiteral("a\tb")},
        {QVariantList{1, QVariant(), QSize(1, 1)}, QVariantList{qint64(1)}},
        {QSize(1, 1), QVariant()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.given.typeName());
        const QVariant plain = PropertyList::normalized(c.given);
        EXPECT_EQ(plain, c.expected);
        EXPECT_EQ(plain.typeId(), c.expected.typeId());
        QString reason;
        EXPECT_EQ(parsed(xml(c.given), &reason).value_or(QVariant()), c.expected);
    }
}

TEST(PropertyList, RefusesWhatIsNotAWholeListOfBoundedSize)
{
    const QByteArray head = "<plist><dict><key>a</key>";
    const struct {
        const char* name;
        QByteArray bytes;
        bool isAccepted;
    } cases[] = {
        {"empty", "", false},
        {"junk", "hello", false},
        {"other XML", "<html/>", false},
        {"no end", head + "<true/></dict>", false},
        {"whole", head + "<true/></dict></plist>", true},
        {"a key without a value", head + "</dict></plist>", true},
        {"deep enough", nestedXml(PropertyList::kDeepest), true},
        {"too deep", nestedXml(PropertyList::kDeepest + 1), false},
        {"very deep", nestedXml(500000), false},
        {"too large", head + "<string>" + QByteArray(PropertyList::kLargest, 'x'), false},
        {"binary head", "bplist00", false},
        {"binary zeros", "bplist00" + QByteArray(100, '\0'), false},
        {"folded", foldedBinary(5, false), true},
        {"folded without end", foldedBinary(5, true), false},
        {"folded to a gigabyte", foldedBinary(40, false), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(isAccepted(c.bytes), c.isAccepted);
    }
}

TEST(PropertyList, RefusesWhatIsCutShort)
{
    for (const QByteArray& whole : {xml(sample()), binary(sample())}) {
        for (qsizetype size = 0; size < whole.trimmed().size(); ++size)
            EXPECT_FALSE(isAccepted(whole.left(size))) << size;
    }
}
