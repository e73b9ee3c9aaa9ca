#pragma once

// What the entries of the status menu do. Each is called when its entry is chosen, while the menu may still
// be on the screen.
class StatusbarActions {
public:
    virtual ~StatusbarActions() = default;

    virtual void regionScreenShotFromSystembar() = 0;
    virtual void fullScreenShotFromSystembar() = 0;
    virtual void reopenLastCapture() = 0;
    virtual void actionForStatusbbarDistance() = 0; // Kept: the name's second "b".
    virtual void actionForStatusbarGetColor() = 0;
    virtual void openVideoRecorderURL() = 0;
    virtual void showPreferences() = 0;
    virtual void actionForStatusbarShowFAQ() = 0;
    virtual void actionForStatusbarShowSupport() = 0;
    virtual void actionForStatusbarShowForum() = 0;
    virtual void actionForStatusbarFeedback() = 0;
    virtual void actionForStatusbarCheckUpdate() = 0;
    virtual void showAbout() = 0;
    virtual void terminate() = 0;
};
