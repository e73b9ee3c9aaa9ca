#pragma once

#include <QString>

#include <vector>

// What the doctor found of one thing that the program needs.
struct Finding {
    enum class State { Right, Warning, Wrong };
    State state = State::Right;
    QString subject;
    QString message;  // half a sentence
    QString remedy{}; // what mends it; empty where nothing is to be mended

    friend bool operator==(const Finding&, const Finding&) = default;
};

// The findings as a user or a script reads them.
namespace DoctorReport {

// A line a finding.
QString text(const std::vector<Finding>& findings);
// {"right": true, "findings": [{"subject", "state", "message", "remedy"}]}
QString json(const std::vector<Finding>& findings);
// Nothing is wrong; a warning is not wrong.
bool isRight(const std::vector<Finding>& findings);

}
