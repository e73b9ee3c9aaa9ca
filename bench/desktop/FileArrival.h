#pragma once

#include <QString>

// Sees a file become complete under its final name in a folder: closed after writing, or renamed to it.
// Hidden files do not count.
class FileArrival {
public:
    explicit FileArrival(const QString& folder); // made when it is missing
    ~FileArrival();
    FileArrival(const FileArrival&) = delete;
    FileArrival& operator=(const FileArrival&) = delete;

    // True when files have arrived since the last call.
    bool hasArrived();

private:
    int m_watch;
};
