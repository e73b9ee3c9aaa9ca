#pragma once

#include <QLabel>
#include <QWidget>

// What the About window says.
struct AboutTexts {
    QString title; // of the window
    QString name;
    QString version;
    QString copyright; // its links are made clickable

    // In the current language.
    static AboutTexts current();
};

// The content of the About window: the product's picture, name, version and copyright. It is as large as its
// texts need.
class AboutView : public QWidget {
public:
    AboutView();

    void changeText(const AboutTexts& texts);

private:
    void layOut();
    void paintEvent(QPaintEvent* event) override;

    QLabel* mAppNameLabel;
    QLabel* mAppVersionLabel;
    QLabel* mAppCopyrightLabel;
};
