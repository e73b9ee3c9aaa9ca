#include "tests/desktop/AnnotatingTest.h"

#include <QPainter>

void AnnotatingTest::SetUp()
{
    EachDesktopTest::SetUp();
    m_program.setEnvironment("QT_SCALE_FACTOR", QString::number(scale()));
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
