#pragma once

#include "app/ShortcutRecordDelegate.h"
#include "commonutils/ModalSession.h"

#include <QFileDialog>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class EndpointTest;
class QMenu;
class Workspace;
namespace Ui {
class ZRPreferencesView;
}

// The content of the preferences window. Every change is in the settings at once, and acted on at once. It is
// as large as its texts in the current language need.
class ZRPreferencesView : public QWidget, private ShortcutRecordDelegate {
public:
    // Borrows the first two.
    ZRPreferencesView(Workspace& workspace, EndpointTest& endpointTest, QWidget* parent = nullptr);
    ~ZRPreferencesView() override;

    // Shows what the settings say, in the current language. A shortcut that is just being recorded stays.
    void initialize();
    void changeText();
    // Takes the size that its texts and its look need now, without waiting for the event loop.
    void settleSize();
    bool isRecoding() const;
    // Ends a recording and leaves the shortcut as it was.
    void exitTypeShortcut();

    // Called when a recording has begun or ended.
    std::function<void()> onTyping;
    // Called when the view may need another size.
    std::function<void()> onSizeChange;

private:
    void build();
    void buildMenus();
    void connectOptions();
    void connectChoices();

    void shortcutRecordDidDone(
        ZRShortcutRecorderControl& control, const QString& keyValue, quint32 modifierFlagsValue) override;
    void shortcutRecordDidCancel(ZRShortcutRecorderControl& control) override;
    void typingChanged();

    void switchStartAppWhenComputerPowerOn(bool isOn);
    void changeLanguage(const QString& langId);
    void changeTheImageQualityUserNeed(int quality);
    void changeFileFormat(const QString& title);
    void openScreenShotSavePathSelecter();
    void chooseSavePath(const QString& path);
    void openFolder();
    void allowTest();
    void testEndpoint();

    void updateLangMenu();
    void showChecks();
    void showShortcuts();
    void showRefusals();
    void showFolder();
    void showFormat();
    void showResult(const QString& failure);
    void sizeChanged();

    Workspace& m_workspace;
    EndpointTest& m_endpointTest;
    const std::unique_ptr<Ui::ZRPreferencesView> m_ui;
    QMenu* mLangMenu = nullptr;
    QMenu* m_formatMenu = nullptr;
    QPointer<QFileDialog> m_folderDialog;
    std::optional<ModalSession> m_folderSession; // while the dialog shows
};
