#pragma once

#include "app/NetworkEndpointTest.h"
#include "customui/ZRCustomWindow.h"

class QScrollArea;
class Workspace;
class ZRPreferencesView;

// The preferences window: titled, with a close button alone. Its form is built with it.
class PreferencesWindow : public ZRCustomWindow {
public:
    // Borrows the workspace.
    explicit PreferencesWindow(Workspace& workspace);
    ~PreferencesWindow() override;

    // Brings it to the front, in the middle of the display with the pointer, as the settings are now.
    void showPreferences();
    // To be called when others changed the settings.
    void settingsChanged();
    void changeText();
    // Ends a recording and leaves the shortcut as it was.
    void exitTypeShortcut();

    // Called when the recording of a shortcut has begun or ended.
    void setOnTyping(std::function<void()> onTyping);

private:
    void keyPressEvent(QKeyEvent* event) override;
    void fit();
    QRect availableArea() const;

    NetworkEndpointTest m_endpointTest;
    QScrollArea* m_scroll; // shows all of the content wherever the display is large enough
    ZRPreferencesView* mPreferencesContentView;
};
