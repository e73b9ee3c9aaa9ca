#pragma once

#include <QTextBrowser>

// The message of an alert: text with links, which open in the user's browser. It scrolls where it is higher
// than its place.
class ZRCustomAlertMessageView : public QTextBrowser {
public:
    explicit ZRCustomAlertMessageView(QWidget* parent = nullptr);

private:
    // Keys other than those of the links are the alert's.
    void keyPressEvent(QKeyEvent* event) override;
};
