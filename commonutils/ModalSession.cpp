#include "commonutils/ModalSession.h"

#include "commonutils/NotificationCenter.h"

namespace {

int s_running = 0;

void tell()
{
    NotificationCenter::defaultCenter().post(QString::fromUtf16(ModalSession::kChanged));
}

}

ModalSession::ModalSession()
{
    if (++s_running == 1)
        tell();
}

ModalSession::~ModalSession()
{
    if (--s_running == 0)
        tell();
}

bool ModalSession::isRunning()
{
    return s_running > 0;
}
