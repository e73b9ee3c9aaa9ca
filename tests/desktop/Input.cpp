#include "tests/desktop/Input.h"

#include <xcb/xtest.h>

Input::Input(const XClient& client)
    : m_client(client)
{
}

Input::~Input()
{
    if (m_client.isConnected())
        releaseAll();
}

void Input::releaseAll()
{
    while (!m_buttonsDown.empty())
        release(m_buttonsDown.back());
    while (!m_keysDown.empty())
        release(m_keysDown.back());
}

void Input::press(Key key)
{
    send(XCB_KEY_PRESS, quint8(key));
    m_keysDown.push_back(key);
}

void Input::release(Key key)
{
    send(XCB_KEY_RELEASE, quint8(key));
    std::erase(m_keysDown, key);
}

void Input::chord(const std::vector<Key>& keys)
{
    for (const Key key : keys)
        press(key);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        release(*key);
}

void Input::type(const std::vector<Key>& keys)
{
    for (const Key key : keys)
        chord({key});
}

void Input::moveTo(QPoint point)
{
    send(XCB_MOTION_NOTIFY, 0, point);
}

void Input::press(Button button)
{
    send(XCB_BUTTON_PRESS, quint8(button));
    m_buttonsDown.push_back(button);
}

void Input::release(Button button)
{
    send(XCB_BUTTON_RELEASE, quint8(button));
    std::erase(m_buttonsDown, button);
}

void Input::click(Button button)
{
    press(button);
    release(button);
}

void Input::clickAt(QPoint point)
{
    moveTo(point);
    click(Button::Left);
}

void Input::drag(QPoint from, QPoint to)
{
    moveTo(from);
    press(Button::Left);
    moveTo(from + (to - from) / 3);
    moveTo(from + (to - from) * 2 / 3);
    moveTo(to);
    release(Button::Left);
}

void Input::send(quint8 type, quint8 detail, QPoint point)
{
    xcb_test_fake_input(
        m_client.connection(), type, detail, XCB_CURRENT_TIME, m_client.root(), point.x(), point.y(), 0);
    m_client.sync();
}
