#include "editor/EveryMovement.h"

#include <QCoreApplication>

EveryMovement::EveryMovement()
{
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
}

EveryMovement::~EveryMovement()
{
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, true);
}
