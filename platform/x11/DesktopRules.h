#pragma once

#include <QString>

// What the environment tells of the desktop session.
struct DesktopEnvironment {
    QString display;        // DISPLAY
    QString waylandDisplay; // WAYLAND_DISPLAY
    QString sessionType;    // XDG_SESSION_TYPE
};

// One line for the user; empty when there may be an X server to ask.
QString problemOf(const DesktopEnvironment& environment);
// A part of a file name, the same for every spelling and every screen of one X server.
QString sessionNameOf(const QString& display);
