#pragma once

// Whether the desktop starts this program at login.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual bool isRegistered() const = 0;
    // False when the desktop's list cannot be written. Registering twice leaves one entry.
    virtual bool registerItem() = 0;
    // Removes every entry of this program; true when none is left.
    virtual bool unregisterItem() = 0;
};
