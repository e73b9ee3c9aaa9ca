#pragma once

#include "platform/InputGrab.h"

// A keyboard that is granted at once, or refused; a pointer that is granted.
class FakeInputGrab final : public InputGrab {
public:
    void grabKeyboard(const QWindow&) override
    {
        ++grabs;
        holds = refusal.isEmpty();
        isKept = false;
        if (!holds && onRefused)
            onRefused(refusal);
    }
    void releaseWithKey() override
    {
        ++releasesWithKey;
        isKept = holds;
    }
    void release() override
    {
        ++releases;
        holds = isKept = false;
    }
    bool holdsKeyboard() const override { return holds; }
    bool grabPointer(const QWindow&) override { return holdsThePointer = true; }
    void releasePointer() override { holdsThePointer = false; }
    bool holdsPointer() const override { return holdsThePointer; }

    QString refusal; // not empty: the keyboard is not granted, for this reason
    bool holds = false;
    bool isKept = false; // until a test calls release()
    bool holdsThePointer = false;
    int grabs = 0;
    int releasesWithKey = 0;
    int releases = 0;
};
