#pragma once

#include <QString>
#include <QUrl>

// The application, or window, that had the user's attention. A handle, meaningful to its Workspace alone.
struct ActiveApplication {
    quint64 window = 0; // what the desktop called active; 0 when it did not tell
    quint64 focus = 0;  // what had the keyboard; 0 when nothing had
    bool isKnown() const { return window != 0 || focus != 0; }
};

// The other programs on the desktop. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    // Not known when nothing is active or it cannot be told.
    virtual ActiveApplication activeApplication() const = 0;
    // Brings it to the front with the keyboard; does nothing when it is gone.
    virtual void activate(const ActiveApplication& application) = 0;
    // Opens a link in the user's browser; false when nobody takes it.
    virtual bool openLink(const QUrl& link) = 0;
    // Shows a file in the user's file manager, or its folder when the file has gone; false when that has gone
    // too.
    virtual bool revealFile(const QString& path) = 0;
};
