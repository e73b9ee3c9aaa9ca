// Read once for many sources of platform/macos/: what of Qt and of the library they include most.
#pragma once

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>
