#pragma once

#include "tests/desktop/XClient.h"

#include <xcb/damage.h>

// Counts the pixels that are drawn anywhere on the screen; what is drawn twice counts twice.
class DamageWatch {
public:
    explicit DamageWatch(const QString& displayName);

    // Waits for the next drawing and until it has been quiet for two milliseconds. 0 when nothing was drawn.
    qint64 takePixels();

private:
    qint64 arrivedPixels();

    XClient m_server;
    quint8 m_event = 0; // the type of a damage event; 0 when the server tells of none
};
