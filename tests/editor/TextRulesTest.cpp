#include "editor/TextRules.h"

#include <gtest/gtest.h>

using namespace TextRules;

namespace {

double tenEach(const QString& text)
{
    return 10.0 * double(text.size());
}

QString letters(int count)
{
    return QString(count, QLatin1Char('n'));
}

}

TEST(TextRules, FieldIsAsWideAsWhatIsTyped)
{
    struct Case {
        Change change;
        double width;
    };
    const Case cases[] = {
        {{{}, {0, 0}, letters(1)}, 90},
        {{letters(7), {7, 0}, letters(1)}, 90}, // 80 and 10 are not more than 90
        {{letters(8), {8, 0}, letters(1)}, 95}, // 90 and 5
        {{letters(3), {3, 0}, letters(20)}, 235},
        {{letters(20), {0, 20}, {}}, 95},
        {{letters(9), {8, 1}, {}}, 95}, // 80 and 10 are not more than 90
        {{letters(11), {9, 1}, {}}, 105},
        {{letters(12), {2, 4}, letters(1)}, 100}, // one of the four counts
        {{letters(4), {0, 4}, letters(1)}, 90},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.change.before.size() << " letters, of which " << c.change.range.length << " become "
                     << c.change.replacement.size());
        EXPECT_EQ(fieldWidth(c.change, tenEach), c.width);
    }
}

TEST(TextRules, StepLeadsFromOneTextToTheOther)
{
    struct Case {
        const char* before;
        Range selected;
        const char* after;
        Range range;
        const char* replacement;
    };
    const Case cases[] = {
        {"", {}, "a", {0, 0}, "a"},
        {"ab", {}, "axb", {1, 0}, "x"},
        {"aaa", {}, "aa", {2, 1}, ""},
        {"hello", {1, 3}, "hexo", {1, 3}, "ex"}, // the first letter of both is the same
        {"hello", {0, 5}, "h", {0, 5}, "h"},
        {"hello", {1, 3}, "ho", {1, 3}, ""},
        {"ho", {1, 1}, "aho", {0, 0}, "a"}, // an undo, which leaves the selection alone
        {"abc", {}, "xyz", {0, 3}, "xyz"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.before << " to " << c.after);
        const QString before = QLatin1String(c.before);
        const Change change = changeBetween(before, c.selected, QLatin1String(c.after));
        EXPECT_EQ(change, (Change{before, c.range, QLatin1String(c.replacement)}));
    }
}

TEST(TextRules, WordIsWhatLiesBetweenTwoBoundaries)
{
    const QString text = QStringLiteral("two words");
    for (const auto& [location, word] : {std::pair{0, Range{0, 3}}, {2, {0, 3}}, {3, {3, 1}}, {4, {4, 5}},
             {8, {4, 5}}, {9, {4, 5}}, {99, {4, 5}}, {-1, {0, 3}}}) {
        SCOPED_TRACE(location);
        EXPECT_EQ(wordAt(text, location), word);
    }
    EXPECT_EQ(wordAt({}, 0), Range());
}

TEST(TextRules, BoxLiesAroundItsPressAndItsText)
{
    for (int size : {9, 14, 96}) {
        SCOPED_TRACE(size);
        QFont font;
        font.setPixelSize(size);
        const double height = measured(QStringLiteral("T"), font).height;
        const ZRRect box = newBox({50, 80}, font);
        EXPECT_EQ(box, (ZRRect{45, 80 - (height + 16) / 2, 100, height + 16}));
        EXPECT_EQ(boxSize({}, font), (ZRSize{100, height + 16}));
        const double wide = measured(letters(99), font).width;
        EXPECT_EQ(boxSize(letters(99), font).width, wide + 10);
        EXPECT_EQ(fieldRect(box), (ZRRect{50, box.y - 3, 90, height + 12}));
        EXPECT_EQ(boxWidth(fieldRect(box).width), box.width);
        EXPECT_EQ(textCorner(box), (ZRPoint{52, box.maxY() - 7}));
    }
}
