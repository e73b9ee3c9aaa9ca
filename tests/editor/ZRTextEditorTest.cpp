#include "editor/ZRTextEditor.h"
#include "tests/editor/EditorTest.h"

#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QElapsedTimer>
#include <QTest>

namespace {

constexpr ZRPoint kPlace{60, 150}; // of the text's press
constexpr ZRPoint kBeside{250, 30};

// A text box in a shown window, typed into with keys.
class ZRTextEditorTest : public EditorTest {
protected:
    ZRTextEditorTest()
    {
        m_host.show();
        m_manager.updateGraffitID(QStringLiteral("text"));
    }

    ZRTextEditor* editing() { return view().editingEditor(); }
    ZRTextEditor* box() { return view().isClickOnEditor(kPlace); }
    void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, editing()->textField(), Qt::Key_unknown, letter, {});
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(editing()->textField(), key, modifiers);
    }
    void write(const QString& text)
    {
        click(kPlace);
        type(text);
        click(kBeside);
    }
    void compose(const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(editing()->textField(), &event);
    }
    // That run for the field, blinking what nobody sees.
    static qsizetype timersOf(ZRScreenShotTextField& field)
    {
        QObjectList objects = field.findChildren<QObject*>();
        objects << &field;
        qsizetype count = 0;
        for (QObject* object : objects)
            count += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
        return count;
    }
    QImage shownInRegion() { return shown().copy(regionPixels()); }
};

}

TEST_F(ZRTextEditorTest, GrowsAndShrinksWithItsText)
{
    drag(kPlace, {kPlace.x + 30, kPlace.y + 20}); // it stays where it was pressed
    ASSERT_TRUE(editing());
    const ZRRect first = editing()->vctualRect();
    EXPECT_EQ(first, TextRules::newBox(kPlace, m_manager.curFont()));
    type(QStringLiteral("i"));
    EXPECT_EQ(editing()->vctualRect(), first);
    type(QStringLiteral("WWWWWWWWWWWWWWWWWWWW"));
    const double width = TextRules::measured(editing()->textField()->text(), m_manager.curFont()).width;
    EXPECT_NEAR(editing()->vctualRect().width, width + 15, 2); // letters may be set closer than alone
    EXPECT_EQ(editing()->vctualRect().height, first.height);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(editing()->vctualRect(), (ZRRect{first.x, first.y, 105, first.height}));
}

TEST_F(ZRTextEditorTest, KeysBelongToTheEditAndEndIt)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_host));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        SCOPED_TRACE(key);
        click(kPlace);
        type(QStringLiteral("abc"));
        ZRScreenShotTextField& field = *editing()->textField();
        EXPECT_EQ(timersOf(field), 1); // the caret may blink
        for (const Qt::Key other : {Qt::Key_S, Qt::Key_Y, Qt::Key_F5, Qt::Key_Up, Qt::Key_Tab, key}) {
            QKeyEvent event(QEvent::KeyPress, other, other == key ? Qt::NoModifier : Qt::ControlModifier);
            QApplication::sendEvent(&field, &event);
            EXPECT_TRUE(event.isAccepted()) << other;
        }
        EXPECT_FALSE(editing());
        EXPECT_FALSE(field.isVisible());
        EXPECT_EQ(timersOf(field), 0);
        ASSERT_TRUE(box());
        EXPECT_FALSE(box()->isFocusOn());
        EXPECT_EQ(box()->textField()->textString(), QStringLiteral("abc"));
        EXPECT_EQ(shownInRegion(), picture());
        m_manager.undoDrawView();
        EXPECT_FALSE(box());
        EXPECT_EQ(picture(), untouched());
    }
}

TEST_F(ZRTextEditorTest, PressOnAnotherAnnotationEndsTheEditAndPressesAreNoStepsOfUndo)
{
    draw("line", {10, 20}, {200, 60});
    m_manager.clearFocusOnGraffitView();
    m_manager.updateGraffitID(QStringLiteral("text"));
    click(kPlace);
    type(QStringLiteral("a"));
    click({105, 40});
    EXPECT_FALSE(editing());
    EXPECT_EQ(box()->textField()->textString(), QStringLiteral("a"));
    EXPECT_TRUE(records()[0].focusOn);
    m_manager.deleteGraffitFromBackSpace();
    for (int i = 0; i < 3; ++i) {
        click(kPlace);
        click(kBeside);
    }
    m_manager.undoDrawView(); // the deletion
    EXPECT_EQ(m_manager.allRecords().size(), 2U);
    m_manager.undoDrawView(); // the click on the line, which brought it to the front
    m_manager.undoDrawView();
    EXPECT_EQ(count(), 0U);
    EXPECT_TRUE(box());
    m_manager.undoDrawView();
    EXPECT_TRUE(m_manager.allRecords().empty());
}

TEST_F(ZRTextEditorTest, TakesAnotherFontWhileItIsSelected)
{
    write(QStringLiteral("Style"));
    click(kPlace);
    QFont font = m_manager.curFont();
    font.setPixelSize(48);
    m_manager.setCurFont(font);
    EXPECT_EQ(box()->vctualRect().size(), TextRules::boxSize(QStringLiteral("Style"), font));
}

TEST_F(ZRTextEditorTest, InputMethodComposesAndAnOutputCommits)
{
    click(kPlace);
    type(QStringLiteral("ab"));
    press(Qt::Key_Left);
    const QImage before = picture();
    compose(QString::fromUtf8("\u306b\u307b"));
    EXPECT_EQ(editing()->textField()->text(), QStringLiteral("ab"));
    EXPECT_EQ(editing()->textField()->shownText(), QString::fromUtf8("a\u306b\u307bb"));
    EXPECT_NE(picture(), before);
    compose({}, QString::fromUtf8("\u65e5"));
    EXPECT_EQ(editing()->textField()->text(), QString::fromUtf8("a\u65e5b"));
    compose(QStringLiteral("xy"));
    m_manager.clearFocusOnGraffitView();
    EXPECT_EQ(box()->textField()->textString(), QString::fromUtf8("a\u65e5xyb"));
    EXPECT_EQ(shownInRegion(), picture());
}

TEST_F(ZRTextEditorTest, InputMethodIsToldWhereTheCaretIs)
{
    click(kPlace);
    const auto place = [this] {
        const ZRScreenShotTextField& field = *editing()->textField();
        return field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().translated(field.pos());
    };
    const QRectF first = place();
    EXPECT_NEAR(first.x(), kRegion.x + kPlace.x + 2, 1);
    EXPECT_NEAR(first.center().y(), m_host.height() - kRegion.y - kPlace.y, 2);
    type(QStringLiteral("nnn"));
    EXPECT_GT(place().x(), first.x() + 10);
}

TEST_F(ZRTextEditorTest, TakesAnyTextAndAnyFont)
{
    const QString texts[] = {QString(10000, QLatin1Char('m')),
        QString::fromUtf8("\U0001f600\U0001f468\u200d\U0001f469"),
        QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd abc \u0645\u0631\u062d\u0628\u0627"),
        QStringLiteral("a\tb\x01\n"), QString(QChar(0xd83d))};
    QFont missing(QStringLiteral("No Such Family"));
    missing.setPixelSize(30);
    m_manager.setCurFont(missing);
    for (const QString& text : texts) {
        SCOPED_TRACE(text.left(10).toStdString());
        click(kPlace);
        QApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(view().composed(regionPixels()).size(), regionPixels().size());
        EXPECT_NE(picture(), untouched());
        press(Qt::Key_Backspace);
        press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_NE(shownInRegion(), picture());
        click(kBeside);
        EXPECT_EQ(shownInRegion(), picture());
        m_manager.goBackDrawView();
        EXPECT_EQ(picture(), untouched());
    }
}

TEST_F(ZRTextEditorTest, LiesBetweenTheAnnotationsBeforeAndAfterIt)
{
    write(QStringLiteral("below"));
    m_manager.setCurColor(Qt::green);
    m_manager.setLineWidth(40);
    draw("line", {40, kPlace.y}, {200, kPlace.y});
    EXPECT_EQ(picture().pixel(70, 50), qRgb(0, 255, 0));
    EXPECT_EQ(records().size(), 1U); // that of the line
    EXPECT_EQ(m_manager.allRecords().size(), 2U);
}

TEST_F(ZRTextEditorTest, TravelsWithTheRegion)
{
    write(QStringLiteral("travel"));
    const ZRRect before = box()->vctualRect();
    m_manager.updateGraffitView(kRegion.translated(5, 9));
    EXPECT_EQ(box()->vctualRect(), before);
    m_manager.updateGraffitView({30, 30, 330, 220});
    EXPECT_EQ(view().isClickOnEditor({kPlace.x + 15, kPlace.y + 9})->vctualRect(), before.translated(15, 9));
}
