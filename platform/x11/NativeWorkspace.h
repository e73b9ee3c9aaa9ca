#pragma once

#include "platform/Workspace.h"
#include "platform/x11/XConnection.h"

#include <QThreadPool>

class NativeWorkspace final : public Workspace {
public:
    explicit NativeWorkspace(std::shared_ptr<XConnection> connection);
    ~NativeWorkspace() override;

    ActiveApplication activeApplication() const override;
    void activate(const ActiveApplication& application) override;
    bool openLink(const QUrl& link) override;
    bool revealFile(const QString& path) override;

private:
    bool hasWindowManager() const;
    xcb_window_t windowProperty(xcb_window_t window, xcb_atom_t name) const;
    void askWindowManager(xcb_window_t window);

    std::shared_ptr<XConnection> m_x;
    const xcb_atom_t m_activeWindow;
    const xcb_atom_t m_wmCheck;
    QThreadPool m_revealing; // waits for the file manager
};
