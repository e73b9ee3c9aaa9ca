#include "packaging/macos/IconFile.h"

#include <QImage>
#include <QMap>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

const QString kDrawing = QStringLiteral(SOURCE_FOLDER "/resources/images/Icon256x256.svg");

// The contents by their types; nothing where the lengths do not add up.
QMap<QByteArray, QByteArray> chunksOf(const QByteArray& bytes)
{
    QMap<QByteArray, QByteArray> chunks;
    for (qsizetype at = 0; at < bytes.size();) {
        if (bytes.size() - at < 8)
            return {};
        const auto length = qsizetype(qFromBigEndian<quint32>(bytes.constData() + at + 4));
        if (length < 8 || length > bytes.size() - at)
            return {};
        chunks.insert(bytes.mid(at, 4), bytes.mid(at + 8, length - 8));
        at += length;
    }
    return chunks;
}

}

TEST(MacIcon, HoldsEverySizeAsAPicture)
{
    const auto file = chunksOf(iconFile(kDrawing));
    ASSERT_EQ(file.keys(), QList<QByteArray>{"icns"});
    const auto entries = chunksOf(file["icns"]);
    const QMap<QByteArray, int> sizes{{"icp4", 16}, {"icp5", 32}, {"ic07", 128}, {"ic08", 256}, {"ic09", 512},
        {"ic10", 1024}, {"ic11", 32}, {"ic12", 64}, {"ic13", 256}, {"ic14", 512}};
    EXPECT_EQ(entries.keys(), sizes.keys());
    for (auto it = sizes.begin(); it != sizes.end(); ++it) {
        SCOPED_TRACE(it.key().constData());
        const QImage image = QImage::fromData(entries[it.key()], "PNG");
        ASSERT_EQ(image.size(), QSize(it.value(), it.value()));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << "the corners are clear";
        const QPoint onTile(it.value() / 2, it.value() * 12 / 100);
        EXPECT_GT(image.pixelColor(onTile).blue(), image.pixelColor(onTile).red() + 60) << "the tile is blue";
    }
}

TEST(MacIcon, IsNoneWithoutADrawing)
{
    EXPECT_EQ(iconFile(QStringLiteral("/none.svg")), QByteArray());
}
