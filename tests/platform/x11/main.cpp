#include "tests/platform/x11/XServer.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    XServer server(QStringLiteral("1600x1200x24"));
    if (server.display().isEmpty()) {
        std::fputs("Xvfb did not start\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", server.display().toUtf8());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); // the user's own session stays out of it
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
