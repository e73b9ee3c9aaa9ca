#pragma once

#include "output/ZRCustomAlertMessageView.h"

#include <QLabel>
#include <QVariantMap>

#include <functional>
#include <memory>

class ModalSession;
class ZRHoverButton;

// A question or a message that waits for an answer, in an ordinary window: captures go on working beside it.
// Of several alerts one shows at a time.
class ZRCustomAlert : public QWidget {
public:
    static constexpr int kCancel = 0;
    static constexpr int kDefault = 1;
    static constexpr int kOther = 2;

    ZRCustomAlert();
    ~ZRCustomAlert() override;

    QLabel* title() const { return m_title; }
    ZRCustomAlertMessageView* message() const { return m_message; }
    QLabel* image() const { return m_image; }
    // A button without a title does not show.
    ZRHoverButton* btnDefault() const { return m_btnDefault; }
    ZRHoverButton* btnCancel() const { return m_btnCancel; }
    ZRHoverButton* btnOther() const { return m_btnOther; }
    // Attributes as AlertRules has them. The alert becomes as high as the message needs, at most as high as
    // the display.
    void updateMessage(const QString& message, const QVariantMap& withAttributes = {});

    // Shows an alert once those before it have been answered; its answer comes once, then it is gone.
    static void run(std::unique_ptr<ZRCustomAlert> alert, std::function<void(int code)> answered);
    // The alert that shows; null for none.
    static ZRCustomAlert* current();

    void alertReturnDefault() { closeAlertWithRetunCode(kDefault); }
    void alertReturnCancel() { closeAlertWithRetunCode(kCancel); }
    void alertReturnOther() { closeAlertWithRetunCode(kOther); }
    // Kept: the spelling.
    void closeAlertWithRetunCode(int code);

private:
    static void showNext();
    void show();
    void _updateTheWindowSize(const QString& message);
    void layOut();
    ZRHoverButton* makeButton(bool isAccented, int code);
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    QLabel* m_title;
    ZRCustomAlertMessageView* m_message;
    QLabel* m_image;
    ZRHoverButton* m_btnDefault;
    ZRHoverButton* m_btnCancel;
    ZRHoverButton* m_btnOther;
    std::function<void(int)> m_answered;
    std::unique_ptr<ModalSession> m_session; // while it shows
};
