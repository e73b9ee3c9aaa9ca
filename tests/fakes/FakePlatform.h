#pragma once

#include "platform/Platform.h"
#include "tests/fakes/FakeDisplays.h"
#include "tests/fakes/FakeFileBookmarks.h"
#include "tests/fakes/FakeFrontKeeper.h"
#include "tests/fakes/FakeHotKeys.h"
#include "tests/fakes/FakeInputGrab.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeMouseMonitor.h"
#include "tests/fakes/FakeStatusItemHost.h"
#include "tests/fakes/FakeWindowServer.h"
#include "tests/fakes/FakeWorkspace.h"

// A whole platform of fakes. A test that drives one of them takes it before it hands the platform
// on: `auto& keys = static_cast<FakeHotKeys&>(*platform.hotKeys);`
inline Platform makeFakePlatform()
{
    Platform platform;
    platform.displays = std::make_unique<FakeDisplays>();
    platform.windowServer = std::make_unique<FakeWindowServer>();
    platform.hotKeys = std::make_unique<FakeHotKeys>();
    platform.inputGrab = std::make_unique<FakeInputGrab>();
    platform.frontKeeper = std::make_unique<FakeFrontKeeper>();
    platform.mouseMonitor = std::make_unique<FakeMouseMonitor>();
    platform.workspace = std::make_unique<FakeWorkspace>();
    platform.loginItem = std::make_unique<FakeLoginItem>();
    platform.fileBookmarks = std::make_unique<FakeFileBookmarks>();
    platform.statusItemHost = std::make_unique<FakeStatusItemHost>();
    return platform;
}
