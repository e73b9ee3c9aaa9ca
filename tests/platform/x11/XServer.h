#pragma once

#include <QProcess>
#include <QRect>
#include <QStringList>

#include <functional>
#include <vector>

#include <xcb/xcb.h>

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

// A window manager that runs for as long as it lives.
class WindowManager {
public:
    explicit WindowManager(const QString& display);
    ~WindowManager();

    // It has no time to tidy up.
    void kill();

private:
    QProcess m_process;
};

// Another program on an X server: a connection of its own, with real keys and windows that tell what keys
// they got.
class XClient {
public:
    explicit XClient(const QString& display);
    ~XClient();
    Q_DISABLE_COPY_MOVE(XClient)

    xcb_connection_t* get() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    // Moves the real key. All keys are let go with the client.
    void press(xcb_keycode_t key);
    void release(xcb_keycode_t key);
    void releaseAll();
    // Moves the real pointer, to a pixel of the root window.
    void movePointer(QPoint pixel);
    void button(uint8_t button, bool isDown);
    // A mapped window of one colour, which hears keys.
    xcb_window_t openWindow(const QRect& pixels, uint32_t colour, bool isManaged = false);
    void focus(xcb_window_t window);
    void raise(xcb_window_t window);
    // Of two windows on the root.
    bool isAbove(xcb_window_t upper, xcb_window_t lower) const;
    xcb_window_t focused() const;
    // Key presses since the last call.
    int takePresses();
    bool grabKeyboard();
    void ungrabKeyboard();
    bool grabPointer();
    void ungrabPointer();
    // False when another client has it.
    bool grabKey(xcb_keycode_t key, uint16_t modifiers);
    void ungrabKey(xcb_keycode_t key, uint16_t modifiers);
    // Until the server has done all of the above.
    void sync() const;

private:
    void sendKey(uint8_t type, xcb_keycode_t key);

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
    std::vector<xcb_keycode_t> m_pressed;
};

// The server of the test program, where its Qt lives.
QString mainDisplay();
// Runs a program against the main server; false when it fails.
bool runTool(const char* program, const char* arguments);
// Lets Qt work until the condition holds; false after that many milliseconds.
bool waitFor(const std::function<bool()>& condition, int ms = 2000);
void letPass(int ms);
