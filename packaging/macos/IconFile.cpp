#include "packaging/macos/IconFile.h"

#include "packaging/IconDrawing.h"

#include <QSvgRenderer>
#include <QtEndian>

namespace {

struct Entry {
    const char* type;
    int pixels; // width and height
};

// Each size twice where it serves as the double of a smaller one, too.
constexpr Entry kEntries[] = {
    {"icp4", 16}, {"ic11", 32},    // 16 points at scale 2
    {"icp5", 32}, {"ic12", 64},    // 32 points
    {"ic07", 128}, {"ic13", 256},  // 128 points
    {"ic08", 256}, {"ic14", 512},  // 256 points
    {"ic09", 512}, {"ic10", 1024}, // 512 points
};

// A type of four characters, the length of both together in big-endian order, and the content.
QByteArray chunk(const char* type, const QByteArray& content)
{
    QByteArray head(type, 4);
    head.resize(8);
    qToBigEndian(quint32(content.size() + 8), head.data() + 4);
    return head + content;
}

}

QByteArray iconFile(const QString& svgPath)
{
    QSvgRenderer renderer(svgPath);
    if (!renderer.isValid())
        return {};
    QByteArray entries;
    for (const Entry& entry : kEntries)
        entries += chunk(entry.type, iconPicture(renderer, entry.pixels));
    return chunk("icns", entries);
}
