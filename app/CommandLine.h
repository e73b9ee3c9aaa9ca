#pragma once

#include <QString>
#include <QStringList>

// What the program was called with.
struct CommandLine {
    enum class Kind { Start, Verb, Help, Version, Wrong };
    Kind kind = Kind::Start;
    QString verb; // set for Kind::Verb

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
}
