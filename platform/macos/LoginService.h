#pragma once

// The system's list of programs that start at login, as far as it concerns this one.
class LoginService {
public:
    enum class Status {
        Absent,      // not in the list, or the list cannot be read
        Present,     // starts at login
        SwitchedOff, // in the list, but the user has switched it off in the system's settings
    };

    virtual ~LoginService() = default;

    virtual Status status() const = 0;
    // Both false when the system refuses.
    virtual bool add() = 0;
    virtual bool remove() = 0;
};
