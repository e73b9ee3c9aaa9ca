#pragma once

#include "app/VerbRequest.h"

#include <QStringList>

// What the program was called with.
struct CommandLine {
    enum class Kind { Start, Verb, Doctor, Help, Version, Wrong };
    Kind kind = Kind::Start;
    VerbRequest request{}; // for Kind::Verb and Kind::Doctor; its output as it was given
    QString problem{};     // one line in words, for Kind::Wrong

    // `arguments` without the program's own name.
    static CommandLine parsed(const QStringList& arguments);
    static QString usage();
};

// The exit codes of the program; the usage text lists them for users.
namespace ExitCode {
constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr int kNothingRuns = 3;
constexpr int kCancelled = 4;
constexpr int kBusy = 5;
constexpr int kUnwritable = 6;
constexpr int kNothingThere = 7;
}
