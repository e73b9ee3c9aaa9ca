#pragma once

#include <QDeadlineTimer>
#include <QThread>

// Asks `holds` again and again until it answers true; false when the milliseconds have passed first.
template <class Condition>
bool waitUntil(Condition holds, int milliseconds = 5000)
{
    const QDeadlineTimer deadline(milliseconds);
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(5);
    }
    return true;
}
