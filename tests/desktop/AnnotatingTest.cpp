#include "tests/desktop/AnnotatingTest.h"

#include <QPainter>

void AnnotatingTest::SetUp()
{
    EachDesktopTest::SetUp();
    m_program.setEnvironment(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale()));
    ASSERT_TRUE(m_program.startResident());
    ASSERT_TRUE(openOverlay());
    drag(kRegion.topLeft(), kRegion.bottomRight() + QPoint(1, 1));
    m_empty = screen();
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

void AnnotatingTest::clickAt(QPoint point)
{
    m_desktop.input().moveTo(point);
    m_desktop.input().click(Button::Left);
}

QImage AnnotatingTest::screen() const
{
    QImage whole = m_before;
    QPainter(&whole).drawImage(inside().topLeft(), m_desktop.settledScreen().copy(inside()));
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

QRect AnnotatingTest::changed(const QImage& a, const QImage& b)
{
    QRect rect;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                rect |= QRect(x, y, 1, 1);
    return rect;
}
