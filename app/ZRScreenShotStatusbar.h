#pragma once

#include "app/StatusbarActions.h"
#include "geometry/ZRRect.h"
#include "platform/StatusItemHost.h"

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

// The status item and its menu. The menu is there from the beginning and never made anew; the item comes when
// the desktop has a place for it. Without one the menu still opens at the pointer.
class ZRScreenShotStatusbar : public QObject {
public:
    // Borrows both; they must outlive it.
    ZRScreenShotStatusbar(StatusItemHost& host, StatusbarActions& actions);
    ~ZRScreenShotStatusbar() override;

    // Asks for a place for the item and waits for nothing: the item itself is made later, from the event
    // loop.
    void initialize();
    void setStatusbarMenu();
    // The entries' texts in the current language, and only those entries that lead somewhere.
    void changeText();
    // The hot keys beside the first two entries. For the eye: they work in the open menu alone, the global
    // hot keys do the work.
    void changeHotKeyText();
    // The item on the screen: points, origin bottom-left of the first display; empty where the desktop does
    // not tell.
    ZRRect statusbarRect() const;
    // Nothing opens while a modal window of ours shows.
    void monitorApplicationModalWindow();
    void clear();

    // Opens the menu at the pointer; false while a modal window shows and before there is a menu.
    bool openMenu();
    // True when the menu was open.
    bool closeMenu();

private:
    enum class Place { Menu, Tools, Help };
    struct Item;
    static const Item kItems[];

    void addItems();
    QMenu& menuAt(Place place);
    void makeStatusItem();
    void dress();
    void watchMenu(QMenu& menu);
    void menuWillOpen();
    void menuDidClose();
    void willHighlightItem(QAction* item);
    void setImage(QAction* item, const QString& imageName);
    void updateLinkItems();
    bool eventFilter(QObject* watched, QEvent* event) override;
    QAction* itemForKey(const QKeyEvent& event) const;

    StatusItemHost& m_host;
    StatusbarActions& m_actions;
    std::unique_ptr<QMenu> statusbarMenu;
    std::unique_ptr<QSystemTrayIcon> mStatusBarItem;
    QAction* mMenuCrossHair = nullptr;
    QAction* mMenuColorPicker = nullptr;
    QAction* mMenuRegion = nullptr;
    QAction* mMenuFullscreen = nullptr;
    QAction* mMenuReopen = nullptr;
    QAction* mMenuMoreTools = nullptr;
    QAction* mMenuRecordVideo = nullptr;
    QAction* mMenuOptions = nullptr;
    QAction* mMenuAbout = nullptr;
    QAction* mMenuHelp = nullptr;
    QAction* mMenuSupport = nullptr;
    QAction* mMenuForum = nullptr;
    QAction* mMenuFAQ = nullptr;
    QAction* mMenuFeedback = nullptr;
    QAction* mMenuUpdate = nullptr;
    QAction* mMenuQuit = nullptr;
    QHash<QAction*, QString> m_imageNames; // what each entry shows now
    QAction* m_highlighted = nullptr;
    bool m_isAttached = false; // the menu belongs to the item
    bool m_isDressed = false;  // pictures and look are set
};
