#pragma once

#include "output/ZRUploadingProrgessView.h"

#include <functional>
#include <memory>

class QTextBrowser;
class ZRHoverButton;

// What a notice shows while a picture is uploaded, and when that has ended.
class ZRScreenshotUploadingView : public QWidget {
public:
    static std::unique_ptr<ZRScreenshotUploadingView> LoadFromNib();

    void updateUploadingProgress(double progress) { mProgressView->setProgress(progress); }
    const ZRUploadingProrgessView& progressView() const { return *mProgressView; }
    bool isFinished() const { return m_isFinished; }
    // The end, with the address of the picture where there is one.
    void setIsFinished(bool isFinished, const QString& withUrlLink = {});
    QString finishedText() const;
    // A line below the end's text.
    void setFinishedNote(const QString& note);
    QString finishedNote() const { return m_finishedNote->text(); }

    const QString& uploadFilePath() const { return m_uploadFilePath; }
    void setUploadFilePath(const QString& path);
    // Called when the user closes the view; the upload is then to be cancelled.
    void setCancelAction(std::function<void()> action) { m_cancelAction = std::move(action); }
    void actionForCancel() const;

private:
    ZRScreenshotUploadingView();
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void arrangeFinished();

    QWidget* mUploadingView; // while it runs
    QWidget* mFinishedView;
    QTextBrowser* mFinishedText;
    QLabel* m_finishedNote;
    ZRUploadingProrgessView* mProgressView;
    QLabel* m_fileName;
    ZRHoverButton* m_closeButton;
    QString m_uploadFilePath;
    bool m_isFinished = false;
    std::function<void()> m_cancelAction;
};
