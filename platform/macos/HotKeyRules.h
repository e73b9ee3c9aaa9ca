#pragma once

#include <QString>

#include <vector>

namespace HotKeyRules {

// Answers of the system's registration.
inline constexpr int kDone = 0;
inline constexpr int kExists = -9878;  // registered twice
inline constexpr int kInvalid = -9879; // no such key or modifiers
inline constexpr int kRefused = -9868; // macOS 15.0 and 15.1: Option, with or without Shift, is not enough

// A combination that the system keeps for itself.
struct SystemKey {
    quint32 keyCode = 0;
    quint32 modifiers = 0; // Carbon masks
    bool isEnabled = false;
};

// Empty when the combination is live; otherwise the reason, as the end of a sentence.
QString refusalOf(int status);
// The system's own combinations win over every program's.
bool isSystemKey(const std::vector<SystemKey>& keys, quint32 keyCode, quint32 modifiers);

}
