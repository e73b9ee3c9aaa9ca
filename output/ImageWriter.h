#pragma once

#include "output/PngEncoder.h"

#include <QByteArray>
#include <QString>

class QImage;

struct WriteResult {
    bool ok = false;
    QString reason; // why not, in words for the log
};

// Turns pictures into files of the type that an extension names: ".jpg" and ".jpeg" are JPEG, ".bmp" BMP,
// ".tiff" TIFF, ".gif" GIF, and any other text, the empty one too, is PNG. Pictures are opaque: the fourth
// byte of their pixels is never looked at. Rows may be borrowed from a larger picture. Safe on any thread.
class ImageWriter {
public:
    // Leaves the whole file under `path` or nothing new; see AtomicFile.
    static WriteResult write(const QString& path, const QImage& image, const QString& imageType);
    // The bytes of such a file; empty when the image is null, too large for the type or memory is short.
    static QByteArray encode(
        const QImage& image, const QString& imageType, PngEffort effort = PngEffort::Small);
};
