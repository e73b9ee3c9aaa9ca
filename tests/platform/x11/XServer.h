#pragma once

#include "tests/desktop/Input.h"

#include <QProcess>

#include <functional>

// A virtual X server that ends with this object.
class XServer {
public:
    // `screen` as "800x600x24"; its display() is empty when it did not start.
    explicit XServer(const QString& screen, const QStringList& options = {});
    ~XServer();

    QString display() const { return m_display; }
    void kill();

private:
    QProcess m_process;
    QString m_display;
};

// Another program on an X server, with windows that tell what keys they got.
class OtherProgram : public XClient {
public:
    using XClient::XClient;

    // A mapped window of one colour, which hears keys.
    xcb_window_t openWindow(const QRect& pixels, uint32_t colour, bool isManaged = false) const;
    void focus(xcb_window_t window) const;
    void raise(xcb_window_t window) const;
    // Of two windows that show on the root.
    bool isAbove(xcb_window_t upper, xcb_window_t lower) const;
    // Key presses since the last call.
    int takePresses() const;
    bool grabKeyboard() const;
    void ungrabKeyboard() const;
    bool grabPointer() const;
    void ungrabPointer() const;
    // False when another client has it.
    bool grabKey(Key key, uint16_t modifiers) const;
    void ungrabKey(Key key, uint16_t modifiers) const;
};

// The server of the test program, where its Qt lives.
QString mainDisplay();
// Runs a program against the main server; false when it fails.
bool runTool(const char* program, const char* arguments);
// Lets Qt work until the condition holds; false after that many milliseconds.
bool waitFor(const std::function<bool()>& condition, int ms = 2000);
void letPass(int ms);
