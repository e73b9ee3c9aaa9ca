#pragma once

#include "capture/ToolScreen.h"
#include "capture/ZRScreenShotManager.h"
#include "settings/AppSettings.h"
#include "settings/UserDefaults.h"
#include "tests/fakes/FakePlatform.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

// A manager on a faked desktop of 800 x 600 pixels, with settings of its own.
class ManagerTest : public testing::Test {
protected:
    void SetUp() override
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        AppSettings::install(&workspace(), nullptr);
        ToolScreen::install(m_platform.displays.get());
        manager = std::make_unique<ZRScreenShotManager>(m_platform);
    }
    void TearDown() override
    {
        manager.reset();
        ToolScreen::install(nullptr);
        AppSettings::install(nullptr, nullptr);
        UserDefaults::setStandardUserDefaults(nullptr);
    }

    FakeWorkspace& workspace() { return static_cast<FakeWorkspace&>(*m_platform.workspace); }
    FakeWindowServer& server() { return static_cast<FakeWindowServer&>(*m_platform.windowServer); }
    FakeDisplays& displays() { return static_cast<FakeDisplays&>(*m_platform.displays); }
    FakeInputGrab& grab() { return static_cast<FakeInputGrab&>(*m_platform.inputGrab); }

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("test"), QStringLiteral("older")};
    Platform m_platform = makeFakePlatform();
    std::unique_ptr<ZRScreenShotManager> manager;
};
