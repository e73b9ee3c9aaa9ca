#include "tests/platform/x11/XServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <cstdlib>
#include <memory>

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

xcb_window_t OtherProgram::openWindow(const QRect& r, uint32_t colour, bool isManaged) const
{
    const xcb_window_t window = xcb_generate_id(connection());
    const uint32_t values[] = {colour, !isManaged, XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root(), r.x(), r.y(), r.width(), r.height(),
        0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(connection(), window);
    sync();
    return window;
}

void OtherProgram::focus(xcb_window_t window) const
{
    xcb_set_input_focus(connection(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    sync();
}

void OtherProgram::raise(xcb_window_t window) const
{
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    sync();
}

bool OtherProgram::isAbove(xcb_window_t upper, xcb_window_t lower) const
{
    const std::vector<xcb_window_t> windows = visibleWindows();
    return std::ranges::find(windows, lower) < std::ranges::find(windows, upper);
}

int OtherProgram::takePresses() const
{
    sync();
    int presses = 0;
    while (const auto event = answer(xcb_poll_for_event(connection())))
        presses += (event->response_type & 0x7f) == XCB_KEY_PRESS;
    return presses;
}

bool OtherProgram::grabKeyboard() const
{
    const auto cookie = xcb_grab_keyboard(
        connection(), false, root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return answer(xcb_grab_keyboard_reply(connection(), cookie, nullptr))->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherProgram::ungrabKeyboard() const
{
    xcb_ungrab_keyboard(connection(), XCB_CURRENT_TIME);
    sync();
}

bool OtherProgram::grabPointer() const
{
    const auto cookie = xcb_grab_pointer(connection(), false, root(), 0, XCB_GRAB_MODE_ASYNC,
        XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    return answer(xcb_grab_pointer_reply(connection(), cookie, nullptr))->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherProgram::ungrabPointer() const
{
    xcb_ungrab_pointer(connection(), XCB_CURRENT_TIME);
    sync();
}

bool OtherProgram::grabKey(Key key, uint16_t modifiers) const
{
    const auto cookie = xcb_grab_key_checked(
        connection(), false, root(), modifiers, quint8(key), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return !answer(xcb_request_check(connection(), cookie));
}

void OtherProgram::ungrabKey(Key key, uint16_t modifiers) const
{
    xcb_ungrab_key(connection(), quint8(key), root(), modifiers);
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
