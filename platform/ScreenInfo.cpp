#include "platform/ScreenInfo.h"

namespace {

// Kept: the first key begins with "tools", the others with "tool".
const QString kNameKey = QStringLiteral("tools.screen.name");
const QString kDisplayIdKey = QStringLiteral("tool.screen.displayId");
const QString kFrameKey = QStringLiteral("tool.screen.frame");
const QString kScaleFactorKey = QStringLiteral("tool.screen.scaleFactor");

QVariantList packed(ZRRect r)
{
    return {r.x, r.y, r.width, r.height};
}

std::optional<ZRRect> unpacked(const QVariantList& list)
{
    if (list.size() != 4)
        return std::nullopt;
    return ZRRect{list[0].toDouble(), list[1].toDouble(), list[2].toDouble(), list[3].toDouble()};
}

}

ScreenInfo::ScreenInfo(QString name, ZRRect frame, int displayId, double scaleFactor)
    : mDisplayId(displayId)
    , mFrameValue(frame)
    , mScaleFactor(scaleFactor)
    , mName(std::move(name))
{
}

ScreenInfo::ScreenInfo(const DisplayRecord& display)
    : ScreenInfo(display.productName.isEmpty() ? display.name : display.productName, display.frame,
          display.id, display.scale)
{
}

QString ScreenInfo::description() const
{
    const ZRRect f = GetScreenFrame();
    return QString::asprintf("\nScreen Info:{\n  ScreenName:%s\n  ScreenFrame:(%0.1f,%0.1f,%0.1f,%0.1f)\n"
                             "  ScreenScaleFactor:%0.1f\n}",
        qUtf8Printable(mName), f.x, f.y, f.width, f.height, mScaleFactor);
}

QVariantMap ScreenInfo::encoded() const
{
    QVariantMap archive;
    archive[kNameKey] = mName;
    archive[kDisplayIdKey] = mDisplayId;
    if (mFrameValue)
        archive[kFrameKey] = packed(*mFrameValue);
    // Kept: the scale factor is archived in single precision.
    archive[kScaleFactorKey] = static_cast<double>(static_cast<float>(mScaleFactor));
    return archive;
}

std::optional<ScreenInfo> ScreenInfo::decoded(const QVariantMap& archive)
{
    if (!archive.contains(kNameKey) || !archive.contains(kDisplayIdKey))
        return std::nullopt;
    ScreenInfo info;
    info.mName = archive[kNameKey].toString();
    info.mDisplayId = archive[kDisplayIdKey].toInt();
    info.mFrameValue = unpacked(archive[kFrameKey].toList());
    info.mScaleFactor = static_cast<float>(archive.value(kScaleFactorKey, 1.0).toDouble());
    return info;
}
