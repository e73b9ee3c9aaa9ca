#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>

#include <string>

// Files as they may come to the service.
namespace Samples {

inline std::string picture(const char* format = "JPG", int width = 60, int height = 40)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 4, y * 6, x * y));
    }
    QBuffer file;
    image.save(&file, format);
    return file.data().toStdString();
}

// Of one red pixel.
inline std::string gif()
{
    return QByteArray::fromHex("47494638396101000100800000ff000000000021f90400000000002c00000000010001000002"
                               "024401003b")
        .toStdString();
}

// The head of a PNG that promises so many pixels; libpng finds nothing wrong with it.
inline std::string promising(int width, int height)
{
    std::string bytes = picture("PNG", width, 1);
    QByteArray head = QByteArrayLiteral("IHDR");
    for (const int number : {width, height}) {
        for (int shift = 24; shift >= 0; shift -= 8)
            head.append(char(number >> shift));
    }
    head.append(bytes.data() + 24, 5); // depth, colours and methods stay
    quint32 crc = 0xffffffff;
    for (const char byte : head) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? (crc >> 1) ^ 0xedb88320 : crc >> 1;
    }
    crc = ~crc;
    for (int shift = 24; shift >= 0; shift -= 8)
        head.append(char(crc >> shift));
    return bytes.replace(12, size_t(head.size()), head.toStdString());
}

}
