#pragma once

#include "platform/FileBookmarks.h"

#include <memory>

class FileURLs;

// Outside the sandbox there is no permission to carry: the file's own permissions decide then.
class NativeFileBookmarks final : public FileBookmarks {
public:
    NativeFileBookmarks();
    ~NativeFileBookmarks() override;

    QByteArray bookmarkData(const QString& path) const override;
    QString resolved(const QByteArray& bookmark, QByteArray* renewed) const override;
    bool startAccessing(const QString& path) override;
    void stopAccessing(const QString& path) override;

private:
    const std::unique_ptr<FileURLs> m_urls;
};
