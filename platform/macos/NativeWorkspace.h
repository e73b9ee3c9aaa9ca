#pragma once

#include "platform/Workspace.h"

#include <memory>

class NativeInputGrab;

// The active application is told by its process; what had the focus inside it, it knows itself.
class NativeWorkspace final : public Workspace {
public:
    // Nobody gets the keyboard before `grab` lets it go.
    explicit NativeWorkspace(NativeInputGrab& grab);

    ActiveApplication activeApplication() const override;
    void activate(const ActiveApplication& application) override;
    bool openLink(const QUrl& link) override;
    bool revealFile(const QString& path) override;

private:
    NativeInputGrab& m_grab;
    const std::shared_ptr<quint64> m_next; // the process that gets the keyboard next; 0 for none
};
