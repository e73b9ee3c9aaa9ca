#include "app/TerminationSignals.h"

#include <array>
#include <csignal>
#include <unistd.h>

namespace {

std::array<int, 2> g_pipe{-1, -1}; // reading end, writing end

void onSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(g_pipe[1], &byte, 1);
}

}

TerminationSignals::TerminationSignals()
{
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    if (::pipe(g_pipe.data()) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        if (onTerminate)
            onTerminate();
    });
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, onSignal);
}
