#include "editor/EntityArchive.h"
#include "editor/ZRTextEditor.h"
#include "tests/editor/EditorTest.h"

#include <limits>

namespace {

class EntityArchiveTest : public EditorTest {
protected:
    void drawOneOfEach()
    {
        m_manager.setLineWidth(6);
        m_manager.setCurColor(QColor(10, 200, 30, 128));
        double x = 10;
        for (const char* tool :
            {"square", "eillpse", "arrow", "line", "customLine", "light", "mosic", "blur"}) {
            draw(tool, {x, 20}, {x + 28, 110});
            x += 36;
        }
        m_manager.clearFocusOnGraffitView();
    }
};

}

TEST_F(EntityArchiveTest, BringsBackEveryKindOfAnnotationAndLeavesItToUndo)
{
    drawOneOfEach();
    const QImage before = picture();
    const QByteArray archive = m_manager.archived();
    for (int i = 0; i < 8; ++i)
        m_manager.undoDrawView();
    ASSERT_EQ(picture(), untouched());
    ASSERT_TRUE(m_manager.restore(archive));
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(m_manager.archived(), archive);
    for (size_t left = 8; left > 0; --left) { // each is one step of undo
        EXPECT_EQ(count(), left);
        m_manager.undoDrawView();
    }
    EXPECT_EQ(picture(), untouched());
    m_manager.goForwardDrawView();
    EXPECT_EQ(count(), 1U);
}

TEST_F(EntityArchiveTest, BringsBackTexts)
{
    ZRTextEditor box;
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(30);
    box.restoreText(QStringLiteral("Grüße, 世界"), font);
    box.setVctualRect({20, 30, box.vctualRect().width, box.vctualRect().height});
    const auto archives = EntityArchive::decoded(EntityArchive::encoded({EntityArchive::of(box)}));
    ASSERT_TRUE(archives);
    const auto entity = archives->at(0).restored();
    const auto* restored = dynamic_cast<const ZRTextEditor*>(entity.get());
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->textField()->textString(), QStringLiteral("Grüße, 世界"));
    EXPECT_EQ(restored->textFont(), font);
    EXPECT_EQ(restored->vctualRect(), box.vctualRect());
    EXPECT_FALSE(restored->isFocusOn());
}

TEST_F(EntityArchiveTest, RefusesWhatIsNoneOfOurs)
{
    drawOneOfEach();
    const QByteArray archive = m_manager.archived();
    for (const qsizetype size : {qsizetype(0), qsizetype(3), qsizetype(60), archive.size() - 1}) {
        SCOPED_TRACE(size);
        EXPECT_FALSE(m_manager.restore(archive.left(size)));
    }
    EXPECT_FALSE(m_manager.restore(QByteArray(200, '\xff'))) << "a count beyond all memory";
    EntityArchive nowhere;
    nowhere.dragPoints = {{std::numeric_limits<float>::quiet_NaN(), 0}};
    EXPECT_FALSE(EntityArchive::decoded(EntityArchive::encoded({nowhere})));
    EXPECT_EQ(count(), 8U) << "nothing was touched";
}

TEST_F(EntityArchiveTest, LeavesOutToolsThatAreNotKnown)
{
    EntityArchive future;
    future.idName = QStringLiteral("hologram");
    EXPECT_TRUE(m_manager.restore(EntityArchive::encoded({future})));
    EXPECT_EQ(count(), 0U);
}
