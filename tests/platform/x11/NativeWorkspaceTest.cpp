#include "platform/x11/NativeWorkspace.h"

#include "tests/platform/x11/XServer.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// Puts a program of that name first in the path, which notes its arguments, one a line.
class FakeTool {
public:
    explicit FakeTool(const char* name)
    {
        QFile script(m_folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.tmp\" && mv \"$0.tmp\" \"$0.arguments\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_arguments = script.fileName() + QStringLiteral(".arguments");
        qputenv("PATH", QFile::encodeName(m_folder.path()) + ":" + m_path);
    }
    ~FakeTool() { qputenv("PATH", m_path); }

    QString arguments() const
    {
        QFile file(m_arguments);
        EXPECT_TRUE(waitFor([&file] { return file.open(QIODevice::ReadOnly); }));
        return QString::fromUtf8(file.readAll());
    }

private:
    QTemporaryDir m_folder;
    QString m_arguments;
    const QByteArray m_path = qgetenv("PATH");
};

}

TEST(NativeWorkspace, LeavesTheFocusWhenTheApplicationIsGone)
{
    NativeWorkspace workspace(XConnection::ofApplication());
    XClient client(mainDisplay());
    const xcb_window_t gone = client.openWindow({0, 0, 50, 50}, 0);
    client.focus(gone);
    const ActiveApplication before = workspace.activeApplication();
    const xcb_window_t kept = client.openWindow({60, 0, 50, 50}, 0);
    client.focus(kept);
    xcb_destroy_window(client.get(), gone);
    client.sync();
    testing::internal::CaptureStderr();
    workspace.activate(before);
    workspace.activate({});
    letPass(50);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(client.focused(), kept);
}

TEST(NativeWorkspace, OpensLinksAndFoldersWithTheDesktop)
{
    NativeWorkspace workspace(XConnection::ofApplication());
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a picture.png"));
    EXPECT_FALSE(workspace.revealFile(folder.filePath(QStringLiteral("no folder/a picture.png"))));
    {
        FakeTool opener("xdg-open");
        EXPECT_TRUE(workspace.revealFile(file)) << "the folder of a file that has gone";
        EXPECT_EQ(opener.arguments(), QUrl::fromLocalFile(folder.path()).toString() + QLatin1Char('\n'));
    }
    QFile(file).open(QIODevice::WriteOnly);
    {
        FakeTool opener("xdg-open");
        EXPECT_TRUE(workspace.revealFile(file));
        EXPECT_EQ(opener.arguments(), QUrl::fromLocalFile(folder.path()).toString() + QLatin1Char('\n'));
    }
    FakeTool opener("xdg-open");
    EXPECT_TRUE(workspace.openLink(QUrl(QStringLiteral("https://example.org/a b"))));
    EXPECT_EQ(opener.arguments(), QStringLiteral("https://example.org/a%20b\n"));
    EXPECT_FALSE(workspace.openLink(QUrl()));
}
