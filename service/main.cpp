#include "service/Kestrel.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <iostream>
#include <thread>

#include <unistd.h>

namespace {

// The signals that end the service, kept back for whoever waits for them. Before any thread begins.
sigset_t heldBackSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

// Until a signal ends it, or until it ends by itself, which is a failure.
bool runUntilSignal(Kestrel& kestrel, const sigset_t& signals)
{
    std::atomic<bool> hasEnded = false;
    std::jthread server([&] {
        kestrel.run();
        hasEnded = true;
        kill(getpid(), SIGTERM);
    });
    while (!kestrel.isRunning() && !hasEnded)
        std::this_thread::yield();
    if (!hasEnded)
        std::cout << "uploads go to " << kestrel.uploadUrl() << std::endl;
    int signal = 0;
    sigwait(&signals, &signal);
    const bool isStopped = !hasEnded;
    kestrel.stop();
    return isStopped;
}

int serve(const ServiceOptions& options)
{
    const sigset_t signals = heldBackSignals();
    std::signal(SIGXFSZ, SIG_IGN); // a file-size limit is a full disk
    Kestrel kestrel(options);
    const std::string reason = kestrel.open();
    if (!reason.empty()) {
        std::cerr << "kestrel: " << reason << '\n';
        return 1;
    }
    return runUntilSignal(kestrel, signals) ? 0 : 1;
}

}

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv); // finds the readers of pictures
    const ParsedOptions parsed = parsedOptions({argv + 1, argv + argc});
    if (parsed.isHelp) {
        std::cout << optionsUsage();
        return 0;
    }
    if (!parsed.reason.empty()) {
        std::cerr << "kestrel: " << parsed.reason << '\n' << optionsUsage();
        return 2;
    }
    return serve(parsed.options);
}
