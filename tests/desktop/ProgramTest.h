#pragma once

#include "tests/desktop/Files.h"
#include "tests/desktop/Program.h"
#include "tests/desktop/Wait.h"

#include <gtest/gtest.h>

// One test's desktop with the program on it. At its end the resident program, when it still runs, quits
// without a crash.
class ProgramTest : public testing::Test {
protected:
    explicit ProgramTest(const DesktopOptions& options = {}, const char* program = LUMORA_PROGRAM);
    void SetUp() override;
    void TearDown() override;

    Input& input() { return m_desktop.input(); }
    const XClient& server() const { return m_desktop.server(); }

    // Starts the resident program at a scale factor.
    bool startResidentAt(const char* scale);
    // The same on two displays, FIRST and SECOND, with the pointer on the first one and scale factors such as
    // "FIRST=1;SECOND=2".
    testing::AssertionResult startOnDisplays(QRect first, QRect second, const char* scales);
    // Presses the region hot key and waits for the overlay on `display`, the whole screen by default.
    testing::AssertionResult openOverlay();
    testing::AssertionResult openOverlay(QRect display);
    // The same with the pointer where no window of the scene is, so that nothing is highlighted.
    testing::AssertionResult openOverlayOnFreeGround();
    // Whether the keys open the overlay in time; it is then cancelled.
    bool opensOverlay(const std::vector<Key>& keys, int milliseconds);
    // Begins a capture by its verb; null when no overlay comes.
    std::unique_ptr<QProcess> startRegion();
    std::unique_ptr<QProcess> startRegion(QRect display);
    // Ends it with Escape.
    testing::AssertionResult cancelCapture();
    // Whether the save key gives that part of the screen as it was when the capture began.
    testing::AssertionResult saves(QRect part);
    // The same after a drag of the region.
    testing::AssertionResult savesRegion(QPoint from, QPoint to);
    // Presses the keys and gives the picture that a capture then leaves; null when there is none.
    QImage pictureAfter(const std::vector<Key>& keys);
    // Waits until the overlay is gone and the pause after a capture is over.
    testing::AssertionResult waitForRest() const;
    // Waits until a window of that title has the keyboard's focus.
    bool waitForFocus(const char* title) const;
    // Another program takes the hot key of Super and this key first.
    void takeHotKey(Key key) const;
    // What another program gets when it pastes; empty when it gets nothing.
    QByteArray clipboard(const char* mimeType) const;
    int logCount(const char* message) const;
    // The programs that start from now on open links and folders with a tool that writes each address into
    // the file "opened" of the home.
    void standInForTheBrowser();
    QStringList openedAddresses() const;

    static constexpr QPoint kFreeGround{1200, 40};
    static constexpr QRect kWindow{700, 600, 300, 150}; // free ground for windows of the tests' own

    Desktop m_desktop;
    Program m_program;
    QImage m_before; // the screen before the capture, with openOverlay or startRegion
};

// The same with a window manager (true) and without one (false).
class EachDesktopTest : public ProgramTest, public testing::WithParamInterface<bool> {
protected:
    explicit EachDesktopTest(QSize size = {1280, 800}, const char* program = LUMORA_PROGRAM)
        : ProgramTest({size, GetParam()}, program)
    {
    }
};

#define LUMORA_ON_EACH_DESKTOP(Suite)                                                                        \
    INSTANTIATE_TEST_SUITE_P(Desktops, Suite, testing::Values(true, false), desktopName)
std::string desktopName(const testing::TestParamInfo<bool>& hasWindowManager);

// Says where two pictures differ first.
testing::AssertionResult samePixels(const QImage& actual, const QImage& expected);
// The mean difference of the channels, 0 to 255; 255 for pictures of different sizes.
double meanDifference(const QImage& actual, const QImage& expected);
// The smallest rectangle around the pixels in which two pictures of one size differ.
QRect changed(const QImage& a, const QImage& b);
// The device pixels of a drag: the pointer's own pixel is not a part of it on its right and bottom edge.
QRect spannedBy(QPoint from, QPoint to);
