#include "editor/ZRScreenShotGraffitToolbar.h"

#include "customui/ZRColorView.h"
#include "editor/PlacementRules.h"
#include "editor/ZRGraffitSizeControlToolbar.h"
#include "editor/ZRScreenShotSetting.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "settings/AppSettings.h"

namespace {

const QColor kSeparator(225, 220, 221);
const QString kMosaicID = QStringLiteral("mosic");
const QString kMosaicImage = QStringLiteral("mosaic");
const QString kBlur = QStringLiteral("blur"); // identifier and image
const QString kEraserID = QStringLiteral("rubber");
constexpr int kRibbonDirection = 1;

}

ZRScreenShotGraffitToolbar::ZRScreenShotGraffitToolbar(QWidget* overlay)
    : ZRScreenShotToolbar(overlay)
    , saveToLocalItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , customLineItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , arrowItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , fontItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , squareItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , circleItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , lightItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , lineItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , blurItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , eraserItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , cancelItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , m_forwardItem(ZRScreenShotToolbarItem::loadToolbarItem(this))
    , m_tools{squareItem, circleItem, arrowItem, lineItem, customLineItem, lightItem, fontItem, blurItem,
          eraserItem}
    , lineView(new ZRColorView(this))
{
    lineView->setColor(kSeparator);
    std::vector<QWidget*> row(m_tools.begin(), m_tools.end());
    row.insert(row.end(), {lineView, cancelItem, m_forwardItem, saveToLocalItem});
    layOut(row, Qt::Horizontal);
}

ZRScreenShotGraffitToolbar::~ZRScreenShotGraffitToolbar() = default;

// Kept: the undo item's picture is named "redo". The digits are the tools' places in the row.
std::vector<ZRScreenShotToolbar::ItemRow> ZRScreenShotGraffitToolbar::rows() const
{
    using Actions = ScreenshotActions;
    const bool isMosaic = AppSettings::getMosicModel();
    return {
        {saveToLocalItem, u"ok", {}, u"ImageEditor:Ribbon:Save", u"%@(Command+S)",
            &Actions::saveRegionShotToLocal},
        {customLineItem, u"brush", u"customLine", u"PaintEdit:Pencil", u"%@(5)",
            &Actions::addCustomLineToScreenshot},
        {lightItem, u"markerPen", u"light", u"PaintEdit:HighLight", u"%@(6)",
            &Actions::addHighlightToScreenshot},
        {lineItem, u"line", u"line", u"PaintEdit:Line", u"%@(4)", &Actions::addLineToScreenshot},
        {arrowItem, u"arrow", u"arrow", u"PaintEdit:Arrow", u"%@(3)", &Actions::addArrowToScreenshot},
        {fontItem, u"font", u"text", u"PaintEdit:Text", u"%@(7)", &Actions::addFontToScreenshot},
        {squareItem, u"square", u"square", u"PaintEdit:HighLightRectangle", u"%@(1)",
            &Actions::addSquareToScreenshot},
        {blurItem, isMosaic ? QStringView(u"mosaic") : QStringView(u"blur"),
            isMosaic ? QStringView(u"mosic") : QStringView(u"blur"), u"PaintEdit:Blur", u"%@(8)",
            &Actions::addBlurToScreenshot},
        {circleItem, u"ellipse", u"eillpse", u"PaintEdit:Ellipse", u"%@(2)", &Actions::addCircleToScreenshot},
        {eraserItem, u"eraser", u"rubber", u"ImageEditor:Ribbon:Eraser", u"%@(9)",
            &Actions::addRubberToScreenShot},
        {cancelItem, u"redo", u"cancel", u"ImageEditor:Toolbar:Undo", u"%@(Command+Z)",
            &Actions::addCancelToScreenshot},
        {m_forwardItem, u"forward", {}, u"Lumora:Editor:Redo", u"%@(Command+Shift+Z)",
            &Actions::addForwardToScreenshot},
    };
}

void ZRScreenShotGraffitToolbar::initialize()
{
    ZRScreenShotToolbar::initialize();
    for (const ItemRow& row : rows())
        setUp(row);
    if (items.empty())
        items = {customLineItem, arrowItem, fontItem, circleItem, squareItem, lightItem, lineItem, blurItem,
            eraserItem, cancelItem};
}

void ZRScreenShotGraffitToolbar::showToolbar(bool show, ZRRect withRegionRect)
{
    const ZRSize size{double(width()), double(height())};
    setFrameOrigin(PlacementRules::drawingToolbarOrigin(withRegionRect, size, overlaySize()));
    ZRScreenShotToolbar::showToolbar(show, withRegionRect);
}

void ZRScreenShotGraffitToolbar::changeSelectedItem(ZRScreenShotToolbarItem* item)
{
    if (item && item == lastSelectedItem) {
        closeSubToolbar();
        item->setState(false);
        lastSelectedItem = nullptr;
        return;
    }
    if (lastSelectedItem)
        lastSelectedItem->setState(false);
    lastSelectedItem = item;
    if (item)
        item->setState(true);
    showItemSubToolbar(item);
}

void ZRScreenShotGraffitToolbar::showItemSubToolbar(ZRScreenShotToolbarItem* item)
{
    if (!item || item->controlID().isNull())
        return;
    if (!mSizeControlToolbar)
        mSizeControlToolbar = std::make_unique<ZRGraffitSizeControlToolbar>();
    mSizeControlToolbar->close();
    if (item->controlID() == kEraserID || !mScreenShotViewController)
        return;
    mSizeControlToolbar->setLastSelectedLineWidth(ZRScreenShotSetting::selectedLineWidth());
    mSizeControlToolbar->popupToolbarWithControlID(
        controlToolbarID(), *item, kRibbonDirection, *mScreenShotViewController);
}

void ZRScreenShotGraffitToolbar::closeSubToolbar()
{
    if (mSizeControlToolbar)
        mSizeControlToolbar->close();
}

// A new capture begins with a new ribbon, at the default style.
void ZRScreenShotGraffitToolbar::close()
{
    closeSubToolbar();
    mSizeControlToolbar.reset();
    ZRScreenShotToolbar::close();
}

void ZRScreenShotGraffitToolbar::changeText()
{
    for (const ItemRow& row : rows())
        setText(row);
}

void ZRScreenShotGraffitToolbar::changeMosicItem()
{
    const bool isOn = blurItem->state();
    const bool wasBlur = blurItem->controlID() == kBlur;
    blurItem->setControlID(wasBlur ? kMosaicID : kBlur);
    blurItem->updateImage(wasBlur ? kMosaicImage : kBlur);
    blurItem->setState(isOn);
}

void ZRScreenShotGraffitToolbar::pressTool(int digit)
{
    if (isVisible() && digit >= 1 && digit <= int(m_tools.size()))
        m_tools[size_t(digit) - 1]->sendAction();
}
