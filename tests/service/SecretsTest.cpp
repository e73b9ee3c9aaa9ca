#include "service/Secrets.h"

#include <gtest/gtest.h>

#include <set>

TEST(Secrets, NamesAreAllDifferentAndKnownByTheirForm)
{
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i)
        names.insert(Secrets::unguessableName());
    EXPECT_EQ(names.size(), 1000u);
    for (const std::string& name : names)
        EXPECT_TRUE(Secrets::isName(name)) << name;
    for (const char* other : {"", "..", "../../../../etc/passwd", "aaaaaaaaaaaaaaaaaaaaa",
             "aaaaaaaaaaaaaaaaaaaaa/", "aaaaaaaaaaaaaaaaaaaaaaa"})
        EXPECT_FALSE(Secrets::isName(other)) << other;
}

TEST(Secrets, OnlyTheRightPasswordFitsItsHash)
{
    const std::string hash = Secrets::passwordHash("open sesame");
    struct Case {
        const char* password;
        std::string hash;
        bool fits;
    };
    const Case cases[] = {
        {"open sesame", hash, true},
        {"open sesamE", hash, false},
        {"", hash, false},
        {"open sesame", "", false},
        {"open sesame", "no hash at all", false},
        {"", ":", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.hash + c.password);
        EXPECT_EQ(Secrets::isPassword(c.password, c.hash), c.fits);
    }
    EXPECT_NE(Secrets::passwordHash("open sesame"), hash) << "two hashes share a salt";
}
