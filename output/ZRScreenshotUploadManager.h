#pragma once

#include "output/UploadJournal.h"
#include "output/UploadRecord.h"

#include <QObject>
#include <QVariantMap>

#include <map>
#include <memory>

class ZRScreenshotUploadSettingWindow;

// Uploads pictures: a notice with the progress, the link when it is done, the question whether to try again
// when it failed. A temporary file that the journal lists is removed when nobody needs it any more. Main
// thread only.
class ZRScreenshotUploadManager : public QObject {
public:
    // The program's own, from the first use until the application object goes.
    static ZRScreenshotUploadManager& defaultManager();
    // `historyPath` is a text file that gets a line for every upload, with the link that deletes it.
    ZRScreenshotUploadManager(const QString& journalPath, QString historyPath);

    UploadJournal& journal() { return m_journal; }
    std::unique_ptr<ZRScreenshotUploadSettingWindow> GetUploadSettingWindow();
    std::unique_ptr<ZRScreenshotUploadingView> GetUploadingView();
    // Confirms the upload window.
    void sureUploadToImage(ZRScreenshotUploadSettingWindow& sender);

    // uploadScreenShotToCloud:userName:title:password: Starts one upload; of a file that is being uploaded,
    // only the newest is known.
    void uploadScreenShotToCloud(const QString& path, const QString& userName, const QString& title,
        const QString& password, unsigned shareType = 0);
    // cancelUplading: Kept: the spelling. The file stays, and is the user's from then on.
    void cancelUplading(const ZRScreenshotUploadingView& view);
    // What notices and windows of uploads are called, in the current language.
    static QString titleOfUploads();
    // Whether there is an address that pictures may be sent to.
    static bool hasEndpoint();
    // Asks for each picture that an earlier run of the program left what is to become of it; not before there
    // is an endpoint to send it to.
    void offerLeftOver();
    // Asks for title and password and uploads; a window that is not confirmed gives the picture up.
    void askAndUpload(const QString& path);
    // Removes a temporary file; nothing happens to one that the journal does not list.
    void removeTemporaryFile(const QString& path);

    // What an upload that reports by notification posts.
    static constexpr char16_t kFinished[] = u"notification.easyHttp.uploadImage";
    static constexpr char16_t kProgress[] = u"notification.easyHttp.uploadImageProgress";

private:
    void postMissingFile(const UploadRecord& record);
    void showProgressOf(UploadRecord& record);
    void start(UploadRecord& record);
    UploadRecord* recordOf(const QString& path);
    void progressChanged(const QString& path, double fraction);
    void completed(const QString& path, const UploadResult& result);
    // Opened in the browser, or shown and on the clipboard, as the user wants it.
    void showLink(const UploadRecord& record, const QString& link);
    void finish(UploadRecord& record);
    void keepDeleteLink(const UploadResult& result) const;
    // `retryTitle` is the title of another try.
    void failed(const QString& path, const QString& error, const QString& retryTitle);
    void askRetry(const UploadRecord& record, const QString& retryTitle);
    void giveUp(const QString& path);
    void forget(const QString& path);
    // Breaks off what is under way while the network can still be put away; the journal keeps the pictures.
    void programEnds();
    void notificationUploadingUpdateProgress(const QVariantMap& info);
    void notificationUplaodeFinished(const QVariantMap& info);

    UploadJournal m_journal;
    const QString m_historyPath;
    std::map<QString, UploadRecord> mUploadMacthList; // by the file's path
};
