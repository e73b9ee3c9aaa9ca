#include "editor/ZRScreenShotSetting.h"

#include <QFontDatabase>

namespace {

struct Style {
    ZRScreenShotToolbarItem* item = nullptr;
    ZRBasicCustomView* focusedView = nullptr;
    QTextEdit* focusedEditor = nullptr;
    QColor color = QColor::fromRgbF(1.0F, 0.0F, 0.0F);
    qint32 lineWidth = 3;
    qint32 fontSize = 14;
};

Style& style()
{
    static Style current;
    return current;
}

}

void ZRScreenShotSetting::clear()
{
    style() = Style{};
}

void ZRScreenShotSetting::setSelectedScreenshotToolbarItem(ZRScreenShotToolbarItem* item)
{
    style().item = item;
}

ZRScreenShotToolbarItem* ZRScreenShotSetting::selectedScreenshotToolbarItem()
{
    return style().item;
}

void ZRScreenShotSetting::setSelectedLineWidth(qint32 points)
{
    style().lineWidth = points;
}

qint32 ZRScreenShotSetting::selectedLineWidth()
{
    return style().lineWidth;
}

void ZRScreenShotSetting::setSelectedColor(const QColor& color)
{
    style().color = color.isValid() ? color : Style{}.color;
}

QColor ZRScreenShotSetting::selectedColor()
{
    return style().color;
}

void ZRScreenShotSetting::setSelectedFontSize(qint32 points)
{
    style().fontSize = points;
}

QFont ZRScreenShotSetting::selectedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(qMax(1, style().fontSize)); // Qt's pixels are points of the display here
    return font;
}

void ZRScreenShotSetting::setFocusOnGraffitView(ZRBasicCustomView* view)
{
    style().focusedView = view;
}

ZRBasicCustomView* ZRScreenShotSetting::focusOnGraffitView()
{
    return style().focusedView;
}

void ZRScreenShotSetting::setFocusOnTextEditor(QTextEdit* editor)
{
    style().focusedEditor = editor;
}

QTextEdit* ZRScreenShotSetting::focusOnTextEditor()
{
    return style().focusedEditor;
}
