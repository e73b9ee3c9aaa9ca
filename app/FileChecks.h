#pragma once

#include "app/DoctorReport.h"

#include <QStringList>

// The doctor's look at the program's files. Nothing is changed; a trial file in the save folder is gone
// again at once.
namespace FileChecks {

// The settings file of the application's domain, which may not be there.
Finding settingsFile(const QString& path);
// `isChosen` tells a folder of the user's choice from the default one, which the program makes itself.
Finding saveFolder(const QString& folder, bool isChosen);
// How much can still be written, in bytes.
Finding freeSpace(const QString& folder, qint64 bytes);
// All language files of the folders, as LanguageCatalogue has them.
Finding languages(const QStringList& folders);
// The folder of the last capture.
Finding journal(const QString& folder, bool isKept);

}
