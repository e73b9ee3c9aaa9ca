#pragma once

#include "platform/Workspace.h"

#include <vector>

// Remembers what it was asked for.
class FakeWorkspace final : public Workspace {
public:
    ActiveApplication activeApplication() const override { return active; }
    void activate(const ActiveApplication& application) override { activated.push_back(application); }
    bool openLink(const QUrl& link) override
    {
        opened.push_back(link);
        return canOpen;
    }
    bool revealFile(const QString& path) override
    {
        revealed.push_back(path);
        return canOpen;
    }

    ActiveApplication active{7, 7};
    bool canOpen = true;
    std::vector<ActiveApplication> activated;
    std::vector<QUrl> opened;
    std::vector<QString> revealed;
};
