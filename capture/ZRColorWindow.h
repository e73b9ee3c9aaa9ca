#pragma once

#include "capture/EditedColour.h"
#include "platform/DisplayRecord.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <memory>

class ColourSwatch;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QSpinBox;

// The window of one colour: a large swatch, steppers for red, green, blue and for hue, saturation, lightness,
// the HTML text, a button and keys that copy it, and the last picks, which are kept in the settings. An
// ordinary window; Escape closes it.
class ZRColorWindow : public QWidget {
public:
    // Not shown yet; its texts are the current language's and follow it.
    static std::unique_ptr<ZRColorWindow> loadForNib();

    // A colour that was just picked: shown, and kept as the latest pick.
    void setColorPanelWithColor(QRgb colour);
    QRgb colour() const { return m_colour.rgb(); }
    // In the middle of the display, with the keyboard.
    void showOn(const DisplayRecord& display);
    // The colour's HTML text goes to the clipboard, and the window says so for a moment.
    void copyValue();

private:
    static constexpr int kSteppers = 6; // red, green, blue, hue, saturation, lightness

    ZRColorWindow();
    void build();
    QLayout* steppers();
    QLayout* htmlRow();
    QLayout* pickRow();
    QPushButton* makeCopyButton();
    QWidget* separator();
    QSpinBox* makeStepper(int index);
    QLabel* makeCaption(const QString& key, QWidget* of);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void stepperChanged(int index);
    void htmlEdited(const QString& text);
    void htmlFinished();
    void showColour(const QWidget* edited = nullptr);
    void showWrong(bool isWrong);
    void showPicks();
    void changeText();

    EditedColour m_colour;
    QList<QRgb> m_picks;
    ColourSwatch* m_swatch = nullptr;
    std::array<QSpinBox*, kSteppers> m_steppers{};
    QLineEdit* m_html = nullptr;
    QPushButton* m_copy = nullptr;
    QTimer m_copied; // runs while the button tells that the value was copied
    std::array<ColourSwatch*, ColourRules::kMostPicks> m_pickSwatches{};
    struct Caption {
        QString key;
        QLabel* label;
        QWidget* of; // what the label names
    };
    std::vector<Caption> m_captions;
};
