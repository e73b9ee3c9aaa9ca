#pragma once

#include <QLabel>
#include <QWidget>

#include <functional>

// What the About window says.
struct AboutTexts {
    QString title;
    QString name;
    QString version;
    QString copyright; // its links are made clickable

    // In the current language.
    static AboutTexts current();
};

// The product's name, version and copyright. An ordinary window with a close button alone; Escape closes it
// too. Sizes are points.
class AboutWindow : public QWidget {
public:
    AboutWindow();

    // Sets the texts and makes the window as large as they need.
    void changeText(const AboutTexts& texts);
    // Brings it to the front in the middle of the display with the pointer, where it does not show already.
    void showAbout();

    // Called when the user closes it; the window itself stays until its owner drops it.
    std::function<void()> onClose;

private:
    void layOut();
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    QLabel* mAppNameLabel;
    QLabel* mAppVersionLabel;
    QLabel* mAppCopyrightLabel;
};
