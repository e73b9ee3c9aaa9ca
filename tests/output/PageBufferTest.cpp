#include "output/PageBuffer.h"

#include <gtest/gtest.h>

#include <utility>

TEST(PageBuffer, TakesBytesUpToItsCapacityAndNoMore)
{
    PageBuffer pages(10);
    EXPECT_TRUE(pages.append("abcdef", 6));
    EXPECT_FALSE(pages.append("abcdef", 6));
    EXPECT_TRUE(pages.append("ghij", 4));
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(pages.data()), pages.size()), "abcdefghij");
}

TEST(PageBuffer, IsNullWhereNoMemoryCanBeHad)
{
    EXPECT_TRUE(PageBuffer(0).isNull());
    EXPECT_TRUE(PageBuffer(size_t(1) << 62).isNull());
}

TEST(PageBuffer, MovesItsBytes)
{
    PageBuffer first(3);
    first.append("abc", 3);
    PageBuffer second = std::move(first);
    PageBuffer third;
    third = std::move(second);
    EXPECT_TRUE(second.isNull());
    EXPECT_EQ(third.size(), 3u);
    EXPECT_EQ(third.data()[2], 'c');
}
