#pragma once

#include <QString>
#include <QStringList>

// The pictures that wait for the end of their upload, in a file that outlives the program. Only a file that
// is listed here is ever removed by an upload or offered after a crash. Titles and passwords are not kept.
class UploadJournal {
public:
    // The file is made when it is needed, its folder too, and the user alone can read it. One that cannot be
    // understood is dropped, with a line in the log.
    explicit UploadJournal(QString path);
    static QString standardPath();

    // Before the file itself is written. False when the journal cannot be written.
    bool add(const QString& imageFilePath);
    void remove(const QString& imageFilePath);
    bool contains(const QString& imageFilePath) const { return read().contains(imageFilePath); }
    // The listed files that are there; the others are dropped from the list.
    QStringList leftOver();

private:
    QStringList read() const;
    void drop() const;
    bool write(const QStringList& paths) const;

    const QString m_path;
};
