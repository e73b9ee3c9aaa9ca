#pragma once

#include "bench/desktop/DimWatch.h"
#include "bench/desktop/FileArrival.h"
#include "tests/desktop/Desktop.h"

#include <optional>

// A desktop with windows and text all over it, and what every bench does there. Times are milliseconds from
// the press of the key, infinite when nothing came of it.
class BenchDesktop {
public:
    explicit BenchDesktop(QSize size);

    bool isReady() const { return m_screen.has_value(); }
    Desktop& desktop() { return m_desktop; }
    Input& input() { return m_desktop.input(); }
    QSize size() const { return m_desktop.server().size(); }
    // Where the program saves when nobody has told it otherwise.
    QString saveFolder() const;

    // What is on the screen now is what a capture dims and what is back after it.
    void rememberScreen();
    // Super and the key; ends when the whole screen is dimmed. The pointer leaves all windows before, so that
    // none stays bright, and stands where nothing drawn around it meets the pixels that are looked at.
    // Infinite also when the screen was not plain before.
    double openOverlay(Key hotKey);
    // Escape; ends when the screen is back and the program is ready for the next capture.
    void closeOverlay();
    // Super and the key; ends when a file has arrived and the program is ready for the next capture.
    double saveScreen(Key hotKey, FileArrival& files);
    // The program answers "busy" for a while after a capture.
    static void restAfterCapture();

private:
    void paintRoot(const QImage& picture) const;
    template <class Condition>
    double millisecondsFromKey(Key hotKey, Condition holds);

    Desktop m_desktop;
    std::optional<DimWatch> m_screen; // set when everything stands
};
