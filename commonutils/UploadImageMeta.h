#pragma once

#include <QString>

// What an upload sends.
class UploadImageMeta {
public:
    const QString& metaTitle() const { return m_title; }
    void setMetaTitle(const QString& title) { m_title = title; }
    // Who wants to see the picture is asked for it; empty for nobody.
    const QString& metaPassword() const { return m_password; }
    void setMetaPassword(const QString& password) { m_password = password; }
    // The full path of the file.
    const QString& metaFileName() const { return m_fileName; }
    void setMetaFileName(const QString& path) { m_fileName = path; }

private:
    QString m_title;
    QString m_password;
    QString m_fileName;
};
