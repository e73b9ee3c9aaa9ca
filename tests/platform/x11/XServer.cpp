#include "tests/platform/x11/XServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <xcb/xtest.h>

namespace {

template <typename Reply>
using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Answer<Reply> answer(Reply* reply)
{
    return Answer<Reply>(reply, &std::free);
}

}

XServer::XServer(const QString& screen, const QStringList& options)
{
    QStringList arguments{QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
        QStringLiteral("0"), screen, QStringLiteral("-nolisten"), QStringLiteral("tcp"),
        QStringLiteral("-noreset")};
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QStringLiteral("Xvfb"), arguments + options);
    while (!m_process.canReadLine() && m_process.waitForReadyRead(10000)) { }
    const QString number = QString::fromUtf8(m_process.readLine()).trimmed();
    if (!number.isEmpty())
        m_display = QLatin1Char(':') + number;
}

XServer::~XServer()
{
    kill();
}

void XServer::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

WindowManager::WindowManager(const QString& display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display);
    m_process.setProcessEnvironment(environment);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    m_process.waitForStarted();
}

WindowManager::~WindowManager()
{
    m_process.terminate();
    m_process.waitForFinished();
}

void WindowManager::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

XClient::XClient(const QString& display)
    : m_connection(xcb_connect(display.toUtf8().constData(), nullptr))
{
    if (const xcb_setup_t* setup = xcb_get_setup(m_connection))
        m_screen = xcb_setup_roots_iterator(setup).data;
}

XClient::~XClient()
{
    releaseAll();
    sync();
    xcb_disconnect(m_connection);
}

void XClient::press(xcb_keycode_t key)
{
    m_pressed.push_back(key);
    sendKey(XCB_KEY_PRESS, key);
}

void XClient::release(xcb_keycode_t key)
{
    std::erase(m_pressed, key);
    sendKey(XCB_KEY_RELEASE, key);
}

void XClient::movePointer(QPoint pixel)
{
    xcb_test_fake_input(m_connection, XCB_MOTION_NOTIFY, false, XCB_CURRENT_TIME, m_screen->root,
        int16_t(pixel.x()), int16_t(pixel.y()), 0);
    sync();
}

void XClient::button(uint8_t button, bool isDown)
{
    xcb_test_fake_input(m_connection, isDown ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, button,
        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    sync();
}

void XClient::releaseAll()
{
    while (!m_pressed.empty())
        release(m_pressed.back());
}

xcb_window_t XClient::openWindow(const QRect& r, uint32_t colour, bool isManaged)
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const uint32_t values[] = {colour, !isManaged, XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, r.x(), r.y(), r.width(),
        r.height(), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(m_connection, window);
    sync();
    return window;
}

void XClient::focus(xcb_window_t window)
{
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    sync();
}

void XClient::raise(xcb_window_t window)
{
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    sync();
}

bool XClient::isAbove(xcb_window_t upper, xcb_window_t lower) const
{
    const auto tree =
        answer(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_screen->root), nullptr));
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    const xcb_window_t* end = first + xcb_query_tree_children_length(tree.get());
    return std::find(first, end, lower) < std::find(first, end, upper);
}

xcb_window_t XClient::focused() const
{
    const auto cookie = xcb_get_input_focus(m_connection);
    return answer(xcb_get_input_focus_reply(m_connection, cookie, nullptr))->focus;
}

int XClient::takePresses()
{
    sync();
    int presses = 0;
    while (const auto event = answer(xcb_poll_for_event(m_connection)))
        presses += (event->response_type & 0x7f) == XCB_KEY_PRESS;
    return presses;
}

bool XClient::grabKeyboard()
{
    const auto cookie = xcb_grab_keyboard(
        m_connection, false, m_screen->root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return answer(xcb_grab_keyboard_reply(m_connection, cookie, nullptr))->status == XCB_GRAB_STATUS_SUCCESS;
}

void XClient::ungrabKeyboard()
{
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    sync();
}

bool XClient::grabPointer()
{
    const auto cookie = xcb_grab_pointer(m_connection, false, m_screen->root, 0, XCB_GRAB_MODE_ASYNC,
        XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    return answer(xcb_grab_pointer_reply(m_connection, cookie, nullptr))->status == XCB_GRAB_STATUS_SUCCESS;
}

void XClient::ungrabPointer()
{
    xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
    sync();
}

bool XClient::grabKey(xcb_keycode_t key, uint16_t modifiers)
{
    const auto cookie = xcb_grab_key_checked(
        m_connection, false, m_screen->root, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return !answer(xcb_request_check(m_connection, cookie));
}

void XClient::ungrabKey(xcb_keycode_t key, uint16_t modifiers)
{
    xcb_ungrab_key(m_connection, key, m_screen->root, modifiers);
    sync();
}

void XClient::sync() const
{
    answer(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

void XClient::sendKey(uint8_t type, xcb_keycode_t key)
{
    xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    sync();
}

QString mainDisplay()
{
    return qEnvironmentVariable("DISPLAY");
}

bool runTool(const char* program, const char* arguments)
{
    QProcess tool;
    tool.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool.start(QString::fromUtf8(program), QProcess::splitCommand(QString::fromUtf8(arguments)));
    return tool.waitForFinished() && tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

bool waitFor(const std::function<bool()>& condition, int ms)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(ms))
            return false;
        QCoreApplication::processEvents();
        QThread::msleep(2);
    }
    return true;
}

void letPass(int ms)
{
    waitFor([] { return false; }, ms);
}
