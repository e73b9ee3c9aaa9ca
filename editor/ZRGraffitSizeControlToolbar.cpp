#include "editor/ZRGraffitSizeControlToolbar.h"

#include "customui/ImageView.h"
#include "customui/ZRColorView.h"
#include "customui/ZRCustomWindow.h"
#include "editor/OutsideClickWatch.h"
#include "editor/ZRColorControlItem.h"
#include "editor/ZRFontSelectView.h"
#include "editor/ZRScreenShotSetting.h"
#include "editor/ZRScreenShotToolbarItem.h"
#include "settings/AppSettings.h"

#include <array>

namespace {

constexpr double kItem = ZRScreenShotToolbarItem::kSide;
constexpr double kGap = 5;
constexpr double kSwatch = 15;
constexpr double kSwatchGap = 2;
constexpr double kUpperRow = 17; // the y of the swatches above
const QString kDefaultFontSize = QStringLiteral("14");
const QColor kPanel(240, 248, 255);
const QColor kSeparator(193, 210, 224);
const QColor kRed = QColor::fromRgbF(1.0F, 0.0F, 0.0F);
const QString kShare = QStringLiteral("share");
const QString kText = QStringLiteral("text");
const QString kMosaicImage = QStringLiteral("mosaic");
const QString kBlurImage = QStringLiteral("blur");

// Kept: the widths, which are not those of the pictures' names, and the thin item without a tooltip.
struct LineWidth {
    QStringView image;
    qint32 points;
    QStringView nameKey;
    bool hasTooltip;
};
constexpr std::array<LineWidth, 3> kLineWidths{{
    {u"4pxDot", 3, u"PaintEdit:Thin", false},
    {u"6pxDot", 6, u"PaintEdit:Medium", true},
    {u"10pxDot", 9, u"PaintEdit:Thick", true},
}};

struct ShareTarget {
    QStringView image;
    QStringView nameKey;
    ItemAction action;
};
constexpr std::array<ShareTarget, 4> kShareTargets{{
    // from top to bottom
    {u"facebook", u"Lumora:Share:Facebook", &ScreenshotActions::shareFacebook},
    {u"google", u"Lumora:Share:Google", &ScreenshotActions::shareGoogle},
    {u"twinter", u"Lumora:Share:Twitter", &ScreenshotActions::shareTwinter},
    {u"pinster", u"Lumora:Share:Pinterest", &ScreenshotActions::sharePinster},
}};

View* newView(double width, double height)
{
    auto* view = new View;
    view->resize(int(width), int(height));
    return view;
}

// Puts a view right of all that a container holds so far, and widens the container.
void append(View& container, View* view)
{
    const int x = container.width();
    container.resize(x + view->width(), container.height());
    view->setParent(&container);
    container.place(*view, {double(x), 0, double(view->width()), double(view->height())});
}

}

// Kept: a new ribbon begins with the default width for everybody.
ZRGraffitSizeControlToolbar::ZRGraffitSizeControlToolbar()
    : mLastSelectedColor(kRed)
{
    ZRScreenShotSetting::setSelectedLineWidth(3);
}

ZRGraffitSizeControlToolbar::~ZRGraffitSizeControlToolbar()
{
    dismissShareView();
}

void ZRGraffitSizeControlToolbar::popupToolbarWithControlID(
    const QString& id, QWidget& relativeTo, int direction, ScreenshotActions& actionTarget)
{
    mLastSelctedItem = nullptr;
    mTarget = &actionTarget;
    View* content = contentViewWithControlID(id);
    mControlID = id;
    if (!content)
        return;
    if (mPopWindow)
        ZRCustomWindow::release(mPopWindow);
    mPopWindow = new ZRCustomWindow({}, ZRCustomWindow::kBorderless, true, kPanel, relativeTo.window());
    if (id == kShare)
        new OutsideClickWatch(*mPopWindow, [this] { dismissShareView(); });
    mPopWindow->popupWithContentView(content, &relativeTo, direction);
}

View* ZRGraffitSizeControlToolbar::contentViewWithControlID(const QString& id)
{
    if (id.isNull())
        return nullptr;
    if (id == kShare)
        return shareView();
    View* container = newView(0, kItem);
    append(*container, id == kText ? _getFontControlView() : _getLineWidthControlView());
    if (id == QStringLiteral("mosic") || id == kBlurImage)
        append(*container, mosicView());
    else
        append(*container, _getColorControlView());
    return container;
}

bool ZRGraffitSizeControlToolbar::isOpen() const
{
    return mPopWindow && mPopWindow->isVisible();
}

void ZRGraffitSizeControlToolbar::changeNewColor(const ZRColorControlItem& swatch)
{
    mLastSelectedColor = swatch.selectColor();
    if (!m_currentColorItem)
        return;
    m_currentColorItem->setSelectColor(mLastSelectedColor);
    m_currentColorItem->sendAction();
}

void ZRGraffitSizeControlToolbar::changeSelectedLineWithItem(ZRScreenShotToolbarItem* item)
{
    if (mLastSelctedItem)
        mLastSelctedItem->setState(false);
    mLastSelctedItem = item;
    if (item)
        item->setState(true);
}

void ZRGraffitSizeControlToolbar::dismissShareView()
{
    changeSelectedLineWithItem(nullptr);
    if (mPopWindow)
        ZRCustomWindow::release(mPopWindow);
    mPopWindow = nullptr;
}

void ZRGraffitSizeControlToolbar::close()
{
    if (mControlID == kText && m_fontView)
        m_fontView->closeMenu();
    dismissShareView();
}

ZRScreenShotToolbarItem* ZRGraffitSizeControlToolbar::addItem(
    View& to, const QString& image, double x, double y, ItemAction action)
{
    ZRScreenShotToolbarItem* item = ZRScreenShotToolbarItem::loadToolbarItem(&to);
    to.place(*item, {x, y, kItem, kItem});
    item->updateImage(image);
    item->setColorItem(true);
    item->setSuperController(this);
    item->onAction = [target = mTarget, action, item] {
        if (target)
            (target->*action)(*item);
    };
    return item;
}

View* ZRGraffitSizeControlToolbar::_getLineWidthControlView()
{
    View* view = newView(111, kItem);
    double x = 0;
    for (const LineWidth& width : kLineWidths) {
        auto* item = addItem(*view, width.image.toString(), x, 0, &ScreenshotActions::graffitLineWidthChnage);
        item->setLineWidth(width.points);
        const QString name = AppSettings::getXMLValueForKeywords(width.nameKey);
        item->setAccessibleName(name);
        item->setToolTip(width.hasTooltip ? name : QString());
        if (width.points == mLastSelectedLineWidth) {
            changeSelectedLineWithItem(item);
            item->sendAction();
        }
        x += kItem + kGap;
    }
    auto* separator = new ZRColorView(view);
    separator->setColor(kSeparator);
    view->place(*separator, {106, -2, 1, 28});
    return view;
}

void ZRGraffitSizeControlToolbar::addSwatch(View& to, const QColor& color, double x, double y)
{
    auto* swatch = new ZRColorControlItem(&to);
    swatch->setSelectColor(color);
    to.place(*swatch, {x, y, kSwatch, kSwatch});
    swatch->onAction = [this, swatch] { changeNewColor(*swatch); };
}

View* ZRGraffitSizeControlToolbar::_getColorControlView()
{
    View* view = newView(256, kItem);
    m_currentColorItem = new ZRColorControlItem(view);
    m_currentColorItem->setBorderLineWidth(2);
    m_currentColorItem->setBorderRadius(4);
    m_currentColorItem->setSelectColor(mLastSelectedColor);
    view->place(*m_currentColorItem, {0, 0, kItem, kItem});
    m_currentColorItem->onAction = [target = mTarget, item = m_currentColorItem.data()] {
        if (target)
            target->graffitColorChange(*item);
    };
    m_currentColorItem->sendAction();
    const double first = kItem + kGap;
    addSwatch(*view, Qt::black, first, kUpperRow);
    addSwatch(*view, Qt::white, first, 0);
    const std::vector<QColor> colors = _getColorList();
    const size_t half = colors.size() / 2;
    for (size_t i = 0; i < colors.size(); ++i)
        addSwatch(*view, colors[i], first + double(i % half + 1) * (kSwatch + kSwatchGap),
            i < half ? kUpperRow : 0);
    return view;
}

// Every mixture of none, half and full red, green and blue but the greys, blue changing fastest.
std::vector<QColor> ZRGraffitSizeControlToolbar::_getColorList()
{
    constexpr std::array kLevels{0, 128, 255};
    std::vector<QColor> colors;
    for (const int red : kLevels)
        for (const int green : kLevels)
            for (const int blue : kLevels)
                if (red != green || green != blue)
                    colors.emplace_back(red, green, blue);
    return colors;
}

View* ZRGraffitSizeControlToolbar::_getFontControlView()
{
    View* view = newView(75, kItem);
    m_fontView = new ZRFontSelectView(view);
    view->place(*m_fontView, {0, 4, 75, 24});
    m_fontView->showFontSize(kDefaultFontSize);
    m_fontView->setAccessibleName(AppSettings::getXMLValueForKeywords(u"Lumora:Editor:FontSize"));
    m_fontView->setBorderColor(kSeparator);
    m_fontView->setBorderLineWith(1.0);
    m_fontView->onAction = [target = mTarget, font = m_fontView.data()] {
        if (target)
            target->graffitFontSizeChange(*font);
    };
    m_fontView->sendAction();
    return view;
}

// Kept: the tooltip is that of the thin line.
View* ZRGraffitSizeControlToolbar::mosicView()
{
    View* view = newView(42, kItem);
    const bool isMosaic = AppSettings::getMosicModel();
    auto* item = addItem(
        *view, isMosaic ? kMosaicImage : kBlurImage, 0, 0, &ScreenshotActions::graffitMosicWidthChnage);
    const QString name = AppSettings::getXMLValueForKeywords(u"PaintEdit:Thin");
    item->setToolTip(name);
    item->setAccessibleName(AppSettings::getXMLValueForKeywords(u"PaintEdit:Blur"));
    view->place(*new ImageView(QStringLiteral("dropDown-normal"), view), {24, 7, 6, 6});
    return view;
}

View* ZRGraffitSizeControlToolbar::shareView()
{
    View* view = newView(42, kItem * double(kShareTargets.size()));
    double y = view->height();
    for (const ShareTarget& target : kShareTargets) {
        y -= kItem;
        addItem(*view, target.image.toString(), 10, y, target.action)
            ->setAccessibleName(AppSettings::getXMLValueForKeywords(target.nameKey));
    }
    return view;
}
