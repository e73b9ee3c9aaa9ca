#include "app/ZRScreenShotStatusbar.h"

#include "app/HotKeyTables.h"
#include "app/MenuLook.h"
#include "app/StatusbarRules.h"
#include "capture/ToolScreen.h"
#include "commonutils/CommLog.h"
#include "commonutils/CommUtils.h"
#include "commonutils/ModalSession.h"
#include "commonutils/NotificationCenter.h"
#include "customui/Images.h"
#include "geometry/ZRServerRect.h"
#include "settings/AppSettings.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QTimer>

#include <utility>

namespace {

const QString kQuitKey = QStringLiteral("cmd q");
constexpr QSizeF kImageSize(16, 16); // points

// The picture of exactly this name whatever the entry's state; the menu itself tells hovered ones apart.
QIcon menuImage(const QString& imageName)
{
    QIcon icon(imageNamed(imageName, kImageSize, 1));
    if (qApp->devicePixelRatio() > 1)
        icon.addPixmap(imageNamed(imageName, kImageSize, qApp->devicePixelRatio()));
    return icon;
}

}

// An entry in its place, what it shows and what it does. An entry with a link is there while the link is.
struct ZRScreenShotStatusbar::Item {
    QAction* ZRScreenShotStatusbar::*action;
    Place place;
    bool isAfterSeparator;
    const char16_t* textKey;
    const char16_t* image;
    void (StatusbarActions::*chosen)(); // null opens a submenu
    QString CommAppInfo::*link;         // null: needs none
};

// clang-format off
const ZRScreenShotStatusbar::Item ZRScreenShotStatusbar::kItems[] = {
    {&ZRScreenShotStatusbar::mMenuRegion, Place::Menu, false, u"Comm:RegionScreenshot", u"region",
        &StatusbarActions::regionScreenShotFromSystembar, nullptr},
    {&ZRScreenShotStatusbar::mMenuFullscreen, Place::Menu, false, u"Comm:FullScreenshot", u"fullscreen",
        &StatusbarActions::fullScreenShotFromSystembar, nullptr},
    {&ZRScreenShotStatusbar::mMenuReopen, Place::Menu, false, u"Lumora:Capture:Reopen", u"reopen",
        &StatusbarActions::reopenLastCapture, nullptr},
    {&ZRScreenShotStatusbar::mMenuMoreTools, Place::Menu, true, u"Comm:Tools", u"tools", nullptr, nullptr},
    {&ZRScreenShotStatusbar::mMenuCrossHair, Place::Tools, false, u"Button:AdvancedCaptureCrossHair",
        u"crosshair-normal", &StatusbarActions::actionForStatusbbarDistance, nullptr},
    {&ZRScreenShotStatusbar::mMenuColorPicker, Place::Tools, false, u"Button:AdvancedCaptureColorPicker",
        u"colorpicker-normal", &StatusbarActions::actionForStatusbarGetColor, nullptr},
    {&ZRScreenShotStatusbar::mMenuRecordVideo, Place::Menu, false, u"Comm:RecordVideo", u"record",
        &StatusbarActions::openVideoRecorderURL, &CommAppInfo::videoRecorderURL},
    {&ZRScreenShotStatusbar::mMenuOptions, Place::Menu, true, u"Comm:Options", u"options",
        &StatusbarActions::showPreferences, nullptr},
    {&ZRScreenShotStatusbar::mMenuHelp, Place::Menu, false, u"Comm:Help", u"help", nullptr, nullptr},
    {&ZRScreenShotStatusbar::mMenuFAQ, Place::Help, false, u"CommLang:Tutorial", u"tutorial",
        &StatusbarActions::actionForStatusbarShowFAQ, &CommAppInfo::FAQURL},
    {&ZRScreenShotStatusbar::mMenuSupport, Place::Help, false, u"CommLang:Support", u"support",
        &StatusbarActions::actionForStatusbarShowSupport, &CommAppInfo::supportURL},
    {&ZRScreenShotStatusbar::mMenuForum, Place::Help, false, u"CommLang:Forum", u"forum",
        &StatusbarActions::actionForStatusbarShowForum, &CommAppInfo::forumURL},
    {&ZRScreenShotStatusbar::mMenuFeedback, Place::Help, false, u"AdvancedCapture:Feedback", u"feedback",
        &StatusbarActions::actionForStatusbarFeedback, &CommAppInfo::feedbackURL},
    {&ZRScreenShotStatusbar::mMenuUpdate, Place::Help, false, u"AdvancedCapture:CheckUpdate", u"update",
        &StatusbarActions::actionForStatusbarCheckUpdate, &CommAppInfo::updateURL},
    {&ZRScreenShotStatusbar::mMenuAbout, Place::Menu, false, u"Comm:About", u"about",
        &StatusbarActions::showAbout, nullptr},
    {&ZRScreenShotStatusbar::mMenuQuit, Place::Menu, true, u"Comm:Exit", u"quit",
        &StatusbarActions::terminate, nullptr},
};
// clang-format on

ZRScreenShotStatusbar::ZRScreenShotStatusbar(StatusItemHost& host, StatusbarActions& actions)
    : m_host(host)
    , m_actions(actions)
    , statusbarMenu(std::make_unique<QMenu>())
{
    addItems();
    NotificationCenter::defaultCenter().addObserver(*this, QString::fromUtf16(ModalSession::kChanged),
        [this](const QVariantMap&) { monitorApplicationModalWindow(); });
}

ZRScreenShotStatusbar::~ZRScreenShotStatusbar()
{
    clear();
}

void ZRScreenShotStatusbar::addItems()
{
    statusbarMenu->setWindowTitle(AppSettings::AppIdentify());
    watchMenu(*statusbarMenu);
    for (const Item& item : kItems) {
        QMenu& menu = menuAt(item.place);
        if (item.isAfterSeparator)
            menu.addSeparator();
        QAction* action = item.chosen ? menu.addAction(QString()) : menu.addMenu(QString())->menuAction();
        action->setIconVisibleInMenu(true);
        action->setShortcutVisibleInContextMenu(true);
        if (item.chosen)
            connect(action, &QAction::triggered, this, [this, &item] { (m_actions.*item.chosen)(); });
        else
            watchMenu(*action->menu());
        this->*item.action = action;
    }
}

QMenu& ZRScreenShotStatusbar::menuAt(Place place)
{
    switch (place) {
    case Place::Tools:
        return *mMenuMoreTools->menu();
    case Place::Help:
        return *mMenuHelp->menu();
    case Place::Menu:
        break;
    }
    return *statusbarMenu;
}

void ZRScreenShotStatusbar::watchMenu(QMenu& menu)
{
    menu.installEventFilter(this);
    connect(&menu, &QMenu::aboutToShow, this, [this] { menuWillOpen(); });
    connect(&menu, &QMenu::aboutToHide, this, [this] { menuDidClose(); });
    connect(&menu, &QMenu::hovered, this, [this](QAction* item) { willHighlightItem(item); });
}

void ZRScreenShotStatusbar::initialize()
{
    m_host.onFound = [this] { makeStatusItem(); };
    QTimer::singleShot(0, this, [this] { m_host.watch(); }); // the launch has the processor to itself
}

void ZRScreenShotStatusbar::makeStatusItem()
{
    QIcon icon = iconNamed(QStringLiteral("statusbar_normal_1024"));
    icon.setIsMask(m_host.tintsItems());
    mStatusBarItem = std::make_unique<QSystemTrayIcon>(icon);
    mStatusBarItem->setToolTip(AppSettings::AppIdentify());
    connect(mStatusBarItem.get(), &QSystemTrayIcon::activated, this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                openMenu(); // a press soon after another one counts as a double click
        });
    dress();
    monitorApplicationModalWindow();
    mStatusBarItem->show();
    CommLog::log(QStringLiteral("the status item is there"));
}

void ZRScreenShotStatusbar::setStatusbarMenu()
{
    m_isAttached = true;
    monitorApplicationModalWindow();
}

// Not before they are seen: the pictures take their time.
void ZRScreenShotStatusbar::dress()
{
    if (std::exchange(m_isDressed, true))
        return;
    statusbarMenu->setStyleSheet(menuStyleSheet());
    for (const Item& item : kItems)
        setImage(this->*item.action, QString::fromUtf16(item.image));
}

void ZRScreenShotStatusbar::changeText()
{
    for (const Item& item : kItems)
        (this->*item.action)->setText(AppSettings::getXMLValueForKeywords(item.textKey));
    mMenuQuit->setShortcut(StatusbarRules::keyEquivalent(kQuitKey));
    updateLinkItems();
}

void ZRScreenShotStatusbar::updateLinkItems()
{
    bool hasHelp = false;
    for (const Item& item : kItems) {
        if (!item.link)
            continue;
        const bool isShown = !(CommUtils::appInfo().*item.link).isEmpty();
        (this->*item.action)->setVisible(isShown);
        hasHelp = hasHelp || (isShown && item.place == Place::Help);
    }
    mMenuHelp->setVisible(hasHelp);
}

void ZRScreenShotStatusbar::changeHotKeyText()
{
    mMenuRegion->setShortcut(StatusbarRules::keyEquivalent(AppSettings::regionScreenShotHotKey()));
    mMenuFullscreen->setShortcut(StatusbarRules::keyEquivalent(AppSettings::fullScreenShotHotKey()));
}

ZRRect ZRScreenShotStatusbar::statusbarRect() const
{
    const QRect item = mStatusBarItem ? mStatusBarItem->geometry() : QRect();
    const auto first = ToolScreen::getFirstScreen();
    if (item.isEmpty() || !first)
        return {};
    return flippedUp({double(item.x()), double(item.y()), double(item.width()), double(item.height())},
        first->frame.height);
}

void ZRScreenShotStatusbar::monitorApplicationModalWindow()
{
    if (mStatusBarItem)
        mStatusBarItem->setContextMenu(
            m_isAttached && !ModalSession::isRunning() ? statusbarMenu.get() : nullptr);
}

void ZRScreenShotStatusbar::clear()
{
    m_host.onFound = nullptr;
    mStatusBarItem.reset();
}

bool ZRScreenShotStatusbar::openMenu()
{
    if (!m_isAttached || ModalSession::isRunning())
        return false;
    dress();
    statusbarMenu->popup(QCursor::pos());
    return true;
}

bool ZRScreenShotStatusbar::closeMenu()
{
    const bool wasOpen = statusbarMenu->isVisible();
    statusbarMenu->close();
    return wasOpen;
}

void ZRScreenShotStatusbar::menuWillOpen()
{
    if (m_highlighted)
        setImage(m_highlighted, StatusbarRules::restingImage(m_imageNames.value(m_highlighted)));
}

void ZRScreenShotStatusbar::menuDidClose()
{
    menuWillOpen();
    m_highlighted = nullptr;
}

void ZRScreenShotStatusbar::willHighlightItem(QAction* item)
{
    if (item == m_highlighted)
        return;
    menuWillOpen();
    m_highlighted = item;
    const bool isInTools = mMenuMoreTools->menu()->actions().contains(item);
    setImage(item, StatusbarRules::highlightedImage(m_imageNames.value(item), isInTools));
}

void ZRScreenShotStatusbar::setImage(QAction* item, const QString& imageName)
{
    if (std::exchange(m_imageNames[item], imageName) != imageName)
        item->setIcon(menuImage(imageName));
}

bool ZRScreenShotStatusbar::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    QAction* item = itemForKey(*static_cast<QKeyEvent*>(event));
    if (item) {
        closeMenu();
        item->trigger();
    }
    return item != nullptr;
}

// The open menu has the keyboard, the global hot keys do not fire.
QAction* ZRScreenShotStatusbar::itemForKey(const QKeyEvent& event) const
{
    const std::pair<QAction*, QString> keys[] = {{mMenuRegion, AppSettings::regionScreenShotHotKey()},
        {mMenuFullscreen, AppSettings::fullScreenShotHotKey()}, {mMenuQuit, kQuitKey}};
    const auto pressed = HotKeyTables::pressed(event);
    for (const auto& [item, hotKey] : keys)
        if (pressed && !hotKey.isEmpty() && HotKeyTables::parsed(hotKey) == *pressed)
            return item;
    return nullptr;
}
