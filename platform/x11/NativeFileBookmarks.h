#pragma once

#include "platform/FileBookmarks.h"

// Programs may use what their user may, so a bookmark is the path itself.
class NativeFileBookmarks final : public FileBookmarks {
public:
    QByteArray bookmarkData(const QString& path) const override;
    QString resolved(const QByteArray& bookmark, QByteArray* renewed) const override;
    bool startAccessing(const QString& path) override;
    void stopAccessing(const QString& path) override;
};
