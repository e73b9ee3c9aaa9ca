#pragma once

// While one exists, every movement of the pointer is handed on, also those that another one waits behind: a
// freehand stroke would lose its corners. At most one exists.
class EveryMovement {
public:
    EveryMovement();
    ~EveryMovement();
    EveryMovement(const EveryMovement&) = delete;
    EveryMovement& operator=(const EveryMovement&) = delete;
};
