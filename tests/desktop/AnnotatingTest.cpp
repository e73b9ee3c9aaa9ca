#include "tests/desktop/AnnotatingTest.h"

#include <QPainter>

void AnnotatingTest::SetUp()
{
    EachDesktopTest::SetUp();
    m_program.setEnvironment("QT_SCALE_FACTOR", QString::number(scale()));
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(openOverlay());
    input().drag(kRegion);
    ASSERT_TRUE(waitUntil([this] { return screen() == m_before; }));
}

void AnnotatingTest::arm(int tool)
{
    if (tool != m_tool)
        clickAt(toolbars().tool(tool == kNone ? m_tool : tool));
    m_tool = tool;
}

void AnnotatingTest::style(int width, int color)
{
    setWidth(width);
    setColor(color);
}

QImage AnnotatingTest::screen() const
{
    QImage whole = m_before;
    put(whole, m_desktop.settledScreen(), inside());
    return whole;
}

QImage AnnotatingTest::saved()
{
    QImage whole = m_before;
    const QImage picture = pictureAfter({Key::Control, Key::S});
    if (picture.size() != kRegion.size())
        return {};
    QPainter(&whole).drawImage(kRegion.topLeft(), picture);
    return whole;
}

QRect AnnotatingTest::whereRed(const QImage& image, QRect area)
{
    QRect rect;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixel(x, y) == qRgb(255, 0, 0))
                rect |= QRect(x, y, 1, 1);
    return rect;
}

void AnnotatingTest::put(QImage& picture, const QImage& from, QRect area)
{
    QPainter(&picture).drawImage(area.topLeft(), from.copy(area));
}
