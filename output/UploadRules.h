#pragma once

#include "commonutils/UploadResult.h"

#include <QString>

// What is shown and opened of an upload.
namespace UploadRules {

// Where an uploaded picture's link goes.
enum ShareType : unsigned { kPlain = 0, kFacebook = 1, kGoogle = 2, kTwitter = 3, kPinterest = 4 };

// The file's name without extension, made different from the title; the title itself for a path without a
// file name.
QString displayName(const QString& path, const QString& title);
// Empty when the service gave none for the type, and for an unknown type.
QString linkFor(const UploadResult& result, unsigned shareType);
// The full bar is for the service's answer.
double shownProgress(double fraction);
bool isCancellation(const QString& error);
// Where a picture waits for its upload: beside the saved pictures, under a name that no file has. `savePath`
// is where it would be saved.
QString temporaryPath(const QString& savePath);

}
