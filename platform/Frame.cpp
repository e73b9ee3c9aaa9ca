#include "platform/Frame.h"

QImage Frame::crop(QRect pixelsOnDisplay) const
{
    const QRect r = pixelsOnDisplay.intersected(m_image.rect());
    if (r.isEmpty())
        return {};
    const uchar* first = m_image.constScanLine(r.y()) + qsizetype(r.x()) * 4;
    return QImage(first, r.width(), r.height(), m_image.bytesPerLine(), m_image.format());
}
