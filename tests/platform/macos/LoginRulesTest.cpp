#include "platform/macos/LoginRules.h"

#include <gtest/gtest.h>

namespace {

using Status = LoginService::Status;

class FakeService final : public LoginService {
public:
    Status status() const override { return current; }
    bool add() override
    {
        ++changes;
        return isWritable && (current = Status::Present, true);
    }
    bool remove() override
    {
        ++changes;
        return isWritable && (current = Status::Absent, true);
    }

    Status current = Status::Absent;
    bool isWritable = true;
    int changes = 0;
};

}

TEST(MacLoginItem, LeavesTheUsersChoiceAlone)
{
    struct Case {
        const char* name;
        Status before;
        bool adds; // otherwise removes
        bool isDone;
        Status after;
        int changes;
    };
    const Case cases[] = {
        {"added", Status::Absent, true, true, Status::Present, 1},
        {"there already", Status::Present, true, true, Status::Present, 0},
        {"switched off, not added again", Status::SwitchedOff, true, false, Status::SwitchedOff, 0},
        {"removed", Status::Present, false, true, Status::Absent, 1},
        {"never there", Status::Absent, false, true, Status::Absent, 0},
        {"switched off, not forgotten", Status::SwitchedOff, false, true, Status::SwitchedOff, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        FakeService service;
        service.current = c.before;
        EXPECT_EQ(c.adds ? LoginRules::add(service) : LoginRules::remove(service), c.isDone);
        EXPECT_EQ(service.current, c.after);
        EXPECT_EQ(service.changes, c.changes);
        EXPECT_EQ(LoginRules::isRegistered(service), c.after == Status::Present);
    }
}

TEST(MacLoginItem, SaysWhenTheSystemRefuses)
{
    FakeService service;
    service.isWritable = false;
    EXPECT_FALSE(LoginRules::add(service));
    service.current = Status::Present;
    EXPECT_FALSE(LoginRules::remove(service));
}
