#include "platform/macos/ScreenReader.h"

#include "platform/WindowServer.h"

#include <gtest/gtest.h>

#include <deque>
#include <future>
#include <thread>

namespace {

using std::chrono::milliseconds;
using Answer = ScreenSource::Answer;

Answer picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(0xff102030);
    return {image, {}};
}

// Answers as the table of the test says.
class FakeSource final : public ScreenSource {
public:
    enum class Kind { AtOnce, FromAnotherThread, Late, Never };
    struct Reply {
        Kind kind = Kind::AtOnce;
        Answer answer;
    };

    ~FakeSource() override
    {
        m_end.set_value();
        for (std::thread& thread : m_threads)
            thread.join();
    }

    bool isPermitted() const override { return permitted; }
    bool askForPermission() override
    {
        ++questions;
        return permitted = isGrantedWhenAsked;
    }
    void prepare() override { ++preparations; }
    void read(const DisplayRecord&, std::function<void(Answer)> onAnswer) override
    {
        ++reads;
        const Reply reply = replies.front();
        replies.pop_front();
        if (reply.kind == Kind::AtOnce)
            onAnswer(reply.answer);
        else if (reply.kind != Kind::Never)
            m_threads.emplace_back([this, reply, onAnswer] {
                if (reply.kind == Kind::Late) // when nobody waits any more
                    m_ending.wait();
                onAnswer(reply.answer);
            });
    }

    std::deque<Reply> replies;
    bool permitted = true;
    bool isGrantedWhenAsked = false;
    int questions = 0;
    int preparations = 0;
    int reads = 0;

private:
    std::promise<void> m_end;
    std::shared_future<void> m_ending = m_end.get_future().share();
    std::vector<std::thread> m_threads;
};

class MacScreenReader : public testing::Test {
protected:
    std::shared_ptr<const Frame> freeze() { return m_reader.freeze(m_display, &m_reason); }

    const DisplayRecord m_display{7, QStringLiteral("first"), {0, 0, 40, 20}, 2, {0, 0, 20, 10}};
    FakeSource* const m_source = new FakeSource;
    ScreenReader m_reader{std::unique_ptr<ScreenSource>(m_source), milliseconds(100)};
    QString m_reason;
};

}

using Kind = FakeSource::Kind;

TEST_F(MacScreenReader, FreezesWhatTheSystemGives)
{
    for (const Kind kind : {Kind::AtOnce, Kind::FromAnotherThread}) {
        m_source->replies = {{kind, picture(40, 20)}};
        const auto frame = freeze();
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->display(), m_display);
        EXPECT_EQ(frame->image().pixel(39, 19), 0xff102030);
        EXPECT_EQ(m_reason, QString());
    }
}

TEST_F(MacScreenReader, TriesASecondTimeAndNoMore)
{
    struct Case {
        const char* name;
        std::deque<FakeSource::Reply> replies;
        bool isFrozen;
        const char16_t* reason; // a part of it
    };
    const Answer refusal{{}, QStringLiteral("no such display")};
    const Case cases[] = {
        {"an error, then a picture", {{Kind::AtOnce, refusal}, {Kind::AtOnce, picture(40, 20)}}, true, u""},
        {"an old size, then the new one", {{Kind::AtOnce, picture(20, 10)}, {Kind::AtOnce, picture(40, 20)}},
            true, u""},
        {"no answer, then a picture", {{Kind::Never, {}}, {Kind::AtOnce, picture(40, 20)}}, true, u""},
        {"two errors", {{Kind::AtOnce, refusal}, {Kind::AtOnce, refusal}}, false, u"no such display"},
        {"a size that stays wrong", {{Kind::AtOnce, picture(20, 10)}, {Kind::AtOnce, picture(20, 10)}}, false,
            u"20x10 pixels for a display of 40x20"},
        {"no answer at all", {{Kind::Never, {}}, {Kind::Never, {}}}, false, u"did not answer in 100 ms"},
        {"too late", {{Kind::Late, picture(40, 20)}, {Kind::Late, picture(40, 20)}}, false,
            u"did not answer"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        m_reason.clear();
        m_source->reads = 0;
        m_source->replies = c.replies;
        EXPECT_EQ(freeze() != nullptr, c.isFrozen);
        EXPECT_EQ(m_source->reads, 2);
        EXPECT_TRUE(m_reason.contains(QString::fromUtf16(c.reason))) << qPrintable(m_reason);
    }
}

TEST_F(MacScreenReader, AsksForThePermissionOnceAndOnlyAtACapture)
{
    m_source->permitted = false;
    m_reader.prepare();
    EXPECT_EQ(m_source->preparations + m_source->questions, 0);
    for (int capture = 0; capture < 2; ++capture) {
        EXPECT_FALSE(freeze());
        EXPECT_EQ(m_reason, FreezeRefusal::kNotPermitted);
    }
    EXPECT_EQ(m_source->questions, 1);
    EXPECT_EQ(m_source->reads, 0);
    m_source->permitted = true;
    m_source->replies = {{Kind::AtOnce, picture(40, 20)}};
    EXPECT_TRUE(freeze());
    m_reader.prepare();
    EXPECT_EQ(m_source->preparations, 1);
}

TEST_F(MacScreenReader, GoesOnWhenTheAnswerIsYes)
{
    m_source->permitted = false;
    m_source->isGrantedWhenAsked = true;
    m_source->replies = {{Kind::AtOnce, picture(40, 20)}};
    EXPECT_TRUE(freeze());
}
