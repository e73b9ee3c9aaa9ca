#pragma once

#include "app/AboutView.h"
#include "customui/ZRCustomWindow.h"

// The About window: titled, with a close button alone.
class AboutWindow : public ZRCustomWindow {
public:
    AboutWindow();

    void changeText(const AboutTexts& texts);
    // Brings it to the front; where it does not show yet, in the middle of the display with the pointer.
    void showAbout();

private:
    AboutView* mAboutContentView;
};
