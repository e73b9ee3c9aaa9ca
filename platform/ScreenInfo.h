#pragma once

#include "platform/DisplayRecord.h"

#include <QString>
#include <QVariantMap>

#include <optional>

// An archivable record of one display.
class ScreenInfo {
public:
    ScreenInfo() = default;
    // initWithScreenName:screenFrame:screenDisplayId:screenScaleFactor:
    ScreenInfo(QString name, ZRRect frame, int displayId, double scaleFactor);
    explicit ScreenInfo(const DisplayRecord& display);

    int GetDisplayID() const { return mDisplayId; }
    ZRRect GetScreenFrame() const { return mFrameValue.value_or(ZRRect{}); } // points, screen coordinates
    QString GetScreenName() const { return mName; }
    double GetScaleFactor() const { return mScaleFactor; }
    QString description() const;

    // The record under its archive keys, and back; a record that is not one of ours gives nothing.
    QVariantMap encoded() const;
    static std::optional<ScreenInfo> decoded(const QVariantMap& archive);

    friend bool operator==(const ScreenInfo&, const ScreenInfo&) = default;

private:
    int mDisplayId = 0;
    std::optional<ZRRect> mFrameValue;
    double mScaleFactor = 1.0;
    QString mName;
};
