#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class ModalSession;
class ZRUploadSettingWindowHeaderView;

// The window around the form of an upload. An ordinary window: the menu alone keeps closed while it shows.
class ZRScreenshotUploadSettingWindow : public QWidget {
public:
    static constexpr int kNotConfirmed = 0;
    static constexpr int kConfirmed = 1;

    static std::unique_ptr<ZRScreenshotUploadSettingWindow> LoadFromNib();
    ~ZRScreenshotUploadSettingWindow() override;

    // The form; it becomes a child, its size the window's.
    void setDocumentView(QWidget* form);
    void changeText();
    // In the middle of the display with the pointer, above other windows.
    void runModal();
    // Takes the window off the screen and tells its owner, once.
    void stopModal(int code);
    // The window may be freed afterwards, not in the call.
    std::function<void(int code)> onEnded;

private:
    ZRScreenshotUploadSettingWindow();
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    ZRUploadSettingWindowHeaderView* m_header;
    QWidget* m_form = nullptr;
    std::unique_ptr<ModalSession> m_session; // while it shows
};
