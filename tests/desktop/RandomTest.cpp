#include "tests/desktop/ProgramTest.h"
#include "tests/desktop/TestWindow.h"
#include "tests/desktop/Toolbars.h"

#include <random>
#include <sstream>

namespace {

constexpr int kCaptures = 36;
constexpr int kLeastSide = 60; // of a region whose handles lie apart

// Captures at random on two displays, beside a model of what each must give. Device pixels of the root.
class Random : public ProgramTest {
protected:
    Random()
        : ProgramTest({.size = {1440, 800}})
    {
    }
    void SetUp() override;

    int below(int limit) { return int(m_random() % unsigned(limit)); }
    QPoint pointOn(QRect display)
    {
        return display.topLeft() +
               QPoint(20 + below(display.width() - 40), 20 + below(display.height() - 40));
    }
    // No window is there, and what is drawn around the pointer leaves the display's corners free.
    static QPoint freeGround(QRect display) { return display.topRight() + QPoint(-30, 40); }
    void choose(QRect display);
    bool isUnderToolbar(QPoint point, QRect display) const
    {
        return Toolbars(display, display == kDisplays[1] ? 1.5 : 1, m_region).covers(point);
    }
    void drag(QPoint from, QPoint to);
    void move(QRect display);
    void pull(QRect display);
    testing::AssertionResult end(QRect display);
    // What the program and its windows take, at rest.
    struct Load {
        int windows = 0;
        int kilobytes = 0;
    };
    Load load() const;

    static constexpr QRect kDisplays[] = {{0, 0, 800, 800}, {800, 120, 640, 600}};
    std::unique_ptr<TestWindow> m_windows[2];
    QRect m_region;
    std::string m_steps; // of the running capture, for a failure's report
    std::minstd_rand m_random{20};
};

void Random::SetUp()
{
    ProgramTest::SetUp();
    ASSERT_TRUE(startOnDisplays(kDisplays[0], kDisplays[1], "FIRST=1;SECOND=1.5"));
    // Without frames, which would show who has the keyboard.
    m_windows[0] = std::make_unique<TestWindow>(
        m_desktop.displayName(), WindowLook{{100, 540, 300, 150}, 0, false, true});
    m_windows[1] = std::make_unique<TestWindow>(
        m_desktop.displayName(), WindowLook{{900, 300, 201, 207}, 3, false, true});
}

void Random::drag(QPoint from, QPoint to)
{
    std::ostringstream step;
    step << from.x() << ',' << from.y() << " to " << to.x() << ',' << to.y() << "; ";
    m_steps += step.str();
    input().drag(from, to);
}

// By a click on the display's window or by a drag.
void Random::choose(QRect display)
{
    m_steps.clear();
    if (below(3) == 0) {
        m_region = m_windows[display == kDisplays[1]]->outline();
        input().clickAt(m_region.center());
        return;
    }
    const QPoint corner = display.topLeft() + QPoint(5, 5); // far from the windows' handles
    input().moveTo(corner);
    const QPoint to = pointOn(display) + QPoint(10, 10);
    drag(corner, to);
    m_region = spannedBy(corner, to);
}

void Random::move(QRect display)
{
    const QPoint press = m_region.center() + QPoint(13, 13);
    const QPoint to = pointOn(display);
    if (isUnderToolbar(press, display))
        return;
    drag(press, to);
    const QPoint by = to - press;
    m_region.moveLeft(
        std::clamp(m_region.x() + by.x(), display.x(), display.x() + display.width() - m_region.width()));
    m_region.moveTop(
        std::clamp(m_region.y() + by.y(), display.y(), display.y() + display.height() - m_region.height()));
}

// One of the four corners or edges, perhaps past the opposite one.
void Random::pull(QRect display)
{
    const int column = below(3), row = below(3);
    if (column == 1 && row == 1)
        return;
    const QPoint press(
        m_region.x() + (m_region.width() - 1) * column / 2, m_region.y() + (m_region.height() - 1) * row / 2);
    const QPoint to = pointOn(display);
    QPoint first = m_region.topLeft();
    QPoint last = first + QPoint(m_region.width(), m_region.height());
    (column == 0 ? first.rx() : last.rx()) += column == 1 ? 0 : to.x() - press.x();
    (row == 0 ? first.ry() : last.ry()) += row == 1 ? 0 : to.y() - press.y();
    const QRect pulled = spannedBy(first, last);
    if (pulled.isEmpty() || isUnderToolbar(press, display))
        return;
    drag(press, to);
    m_region = pulled;
}

testing::AssertionResult Random::end(QRect display)
{
    const QImage expected = m_before.copy(m_region & display);
    const qsizetype saved = m_program.savedPictures().size();
    switch (below(4)) {
    case 0: {
        const auto rest = cancelCapture();
        return m_program.savedPictures().size() == saved ? rest : testing::AssertionFailure() << "a file";
    }
    case 1:
        input().chord({Key::Control, Key::C});
        if (!waitForRest())
            return testing::AssertionFailure() << "the overlay stays after a copy";
        return samePixels(QImage::fromData(clipboard("image/png")), expected);
    default:
        return samePixels(pictureAfter({Key::Control, Key::S}), expected);
    }
}

Random::Load Random::load() const
{
    const QString status = QStringLiteral("/proc/%1/status").arg(m_program.resident().processId());
    return {server().windowCount(), statusNumber(status, "VmRSS")};
}

} // namespace

TEST_F(Random, CapturesLeaveNothingBehindAndGiveTheRightPixels)
{
    bool isGiven = false;
    const int wanted = qEnvironmentVariableIntValue("LUMORA_RANDOM_CAPTURES", &isGiven);
    const int captures = isGiven ? wanted : kCaptures;
    Load warm, last;
    for (int i = 0; i < captures; ++i) {
        SCOPED_TRACE(testing::Message() << "capture " << i);
        int display = below(2);
        input().moveTo(freeGround(kDisplays[display]));
        ASSERT_TRUE(openOverlay(kDisplays[display]));
        if (below(3) == 0) {
            display = 1 - display;
            input().moveTo(freeGround(kDisplays[display]));
            ASSERT_TRUE(m_program.waitForOverlay(m_before, kDisplays[display]));
        }
        choose(kDisplays[display]);
        for (int change = below(3); change > 0; --change) {
            if (m_region.width() < kLeastSide || m_region.height() < kLeastSide)
                break;
            below(2) ? move(kDisplays[display]) : pull(kDisplays[display]);
        }
        SCOPED_TRACE(m_steps);
        ASSERT_TRUE(end(kDisplays[display]));
        ASSERT_FALSE(server().isKeyboardTaken());
        ASSERT_FALSE(server().isPointerTaken());
        Load& most = i < captures / 3 ? warm : last;
        const Load now = load();
        most = {std::max(most.windows, now.windows), std::max(most.kilobytes, now.kilobytes)};
    }
    EXPECT_LE(last.windows, warm.windows);
#ifndef __SANITIZE_ADDRESS__ // which keeps freed memory on purpose
    EXPECT_LE(last.kilobytes, warm.kilobytes * 1.1);
#endif
    RecordProperty("warmKilobytes", warm.kilobytes);
    RecordProperty("lastKilobytes", last.kilobytes);
}
