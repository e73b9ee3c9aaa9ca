#include "editor/ZRScreenShotShareToolbar.h"

#include "customui/ZRColorView.h"
#include "editor/PlacementRules.h"
#include "editor/ZRGraffitSizeControlToolbar.h"
#include "editor/ZRScreenShotToolbarItem.h"

namespace {

constexpr quint32 kCommand = 0x100000; // of the key equivalents' modifiers
constexpr int kRibbonDirection = 2;
const QColor kSeparator(225, 220, 221);
const QString kShareID = QStringLiteral("share");

}

ZRScreenShotShareToolbar::ZRScreenShotShareToolbar(QWidget* overlay)
    : ZRScreenShotToolbar(overlay)
    , saveItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , reSelectRegionItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , sharedItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , uploadItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , copyItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , showImageItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , lineView(new ZRColorView(this))
{
    lineView->setColor(kSeparator);
}

ZRScreenShotShareToolbar::~ZRScreenShotShareToolbar() = default;

// Kept: the cancel item's key is R while its tooltip names Escape, which cancels too.
std::vector<ZRScreenShotToolbar::ItemRow> ZRScreenShotShareToolbar::rows() const
{
    using Actions = ScreenshotActions;
    return {
        {saveItem, u"save", {}, u"ImageEditor:Ribbon:Save", u"%@(Command+S)",
            &Actions::saveRegionShotToLocal},
        {sharedItem, u"share", u"share", u"Button:Share", {}, &Actions::reSharedScreenshotRegion},
        {reSelectRegionItem, u"close", {}, u"Button:Cancel", u"%@(Esc)", &Actions::reSelectScreenshotRegion},
        {uploadItem, u"upload", {}, u"ImageEditor:Ribbon:Upload", u"%@(Command+U)",
            &Actions::uploadRegionScreenshotToCloud},
        {copyItem, u"copy", {}, u"Button:CopyToClipboard", u"%@(Command+C)", &Actions::saveToPasteboard},
        {showImageItem, u"pin", {}, u"Comm:PinToScreen", {}, &Actions::DisplacementScreenShot},
    };
}

void ZRScreenShotShareToolbar::initialize()
{
    ZRScreenShotToolbar::initialize();
    for (const ItemRow& row : rows())
        setUp(row);
    saveItem->setKeyEquivalent(QStringLiteral("s"), kCommand);
    reSelectRegionItem->setKeyEquivalent(QStringLiteral("r"), kCommand);
    uploadItem->setKeyEquivalent(QStringLiteral("u"), kCommand);
    copyItem->setKeyEquivalent(QStringLiteral("c"), kCommand);
    if (items.empty())
        items = {saveItem, reSelectRegionItem, showImageItem, uploadItem, copyItem};
    showOffered();
}

// Cancel stands apart and farthest from the region's corner, where the pointer is.
void ZRScreenShotShareToolbar::showOffered()
{
    const std::pair<ZRScreenShotToolbarItem*, OutputItem> kinds[] = {
        {saveItem, OutputItem::Save},
        {reSelectRegionItem, OutputItem::Cancel},
        {showImageItem, OutputItem::Pin},
        {uploadItem, OutputItem::Upload},
        {copyItem, OutputItem::Copy},
        {sharedItem, OutputItem::Share},
    };
    for (const auto& [item, kind] : kinds)
        item->setVisible(mScreenShotViewController && mScreenShotViewController->isOffered(kind));
    layOut({reSelectRegionItem, lineView, sharedItem, uploadItem, showImageItem, copyItem, saveItem},
        Qt::Vertical);
}

void ZRScreenShotShareToolbar::showToolbar(bool show, ZRRect withRegionRect)
{
    const ZRSize size{double(width()), double(height())};
    setFrameOrigin(PlacementRules::outputToolbarOrigin(withRegionRect, size, overlaySize()));
    ZRScreenShotToolbar::showToolbar(show, withRegionRect);
}

void ZRScreenShotShareToolbar::showItemSubToolbar(ZRScreenShotToolbarItem* item)
{
    if (!item || item->controlID() != kShareID || !mScreenShotViewController)
        return;
    if (!mSizeControlToolbar)
        mSizeControlToolbar = std::make_unique<ZRGraffitSizeControlToolbar>();
    mSizeControlToolbar->close();
    mSizeControlToolbar->popupToolbarWithControlID(
        kShareID, *item, kRibbonDirection, *mScreenShotViewController);
}

void ZRScreenShotShareToolbar::dismissShareView()
{
    if (mSizeControlToolbar)
        mSizeControlToolbar->dismissShareView();
}

void ZRScreenShotShareToolbar::close()
{
    if (mSizeControlToolbar)
        mSizeControlToolbar->close();
    ZRScreenShotToolbar::close();
}

void ZRScreenShotShareToolbar::changeText()
{
    for (const ItemRow& row : rows())
        setText(row);
}
