#pragma once

#include <QString>

class FileBookmarks;

// Keeps the permission for the save folder beyond the end of the program: bookmark data in the settings,
// under the path. Access that was started lasts until the program ends. Main thread only.
class ZRBookmark {
public:
    static ZRBookmark& defaultShareBookmark();
    // Borrowed; without one nothing is made and nothing resolves.
    void install(FileBookmarks* files) { m_files = files; }

    // False, and nothing stored, when no data can be made; so for a path that is not absolute.
    bool saveOpenFileToBookmarkWithFilePath(const QString& path);
    // False, without a look at any file, where nothing is stored under the path; else whether the permission
    // still holds.
    bool BookmarkStartAccessingSecurityScopedResourceWithFilePath(const QString& path);
    // False when nothing is stored or it leads nowhere.
    bool BookmarkStopAccessingSecurityScopedResourceWithFilePath(const QString& path);
    // Whether there was any data.
    bool removeFileBookmarkInfoWithFilePath(const QString& path);

private:
    QString resolved(const QString& path) const;

    FileBookmarks* m_files = nullptr;
};
