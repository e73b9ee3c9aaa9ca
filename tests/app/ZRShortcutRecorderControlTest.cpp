#include "app/ZRShortcutRecorderControl.h"

#include "app/ShortcutRecordDelegate.h"
#include "app/ShortcutRules.h"
#include "tests/app/KeyStroke.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace KeyStroke;

namespace {

// A field and a button beside it, in a window that has the keyboard.
class Recorder : public testing::Test, protected ShortcutRecordDelegate {
protected:
    Recorder()
        : field(new ZRShortcutRecorderControl(&window))
        , other(new QWidget(&window))
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(other);
        other->setFocusPolicy(Qt::StrongFocus);
        field->setDelegate(this);
        field->onTyping = [this] { calls << (field->isTyping() ? "typing" : "rest"); };
        field->setOldShortcutKeyValue(QStringLiteral("a"), ShortcutRules::kCommand);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    void shortcutRecordDidDone(ZRShortcutRecorderControl&, const QString& key, quint32 flags) override
    {
        calls << "done " + ShortcutRules::hotKeyString(key, flags).toLatin1();
    }
    void shortcutRecordDidCancel(ZRShortcutRecorderControl&) override { calls << "cancel"; }

    void click(QPointF point) { QTest::mouseClick(field, Qt::LeftButton, {}, point.toPoint()); }
    void startRecoding()
    {
        click(field->rect().center());
        EXPECT_TRUE(field->isRecoding() && field->isFirstResponder());
        calls.clear();
    }
    QString shown() const { return field->typedModifierFlagsStringValue() + field->typedKeyValue(); }

    QByteArrayList calls;
    QWidget window;
    ZRShortcutRecorderControl* field;
    QWidget* other;
};

}

TEST_F(Recorder, ShowsAnOldShortcutInUpperCase)
{
    EXPECT_EQ(shown(), QStringLiteral("⌘A"));
    EXPECT_EQ(field->toolTip(), QStringLiteral("Meta+A"));
    EXPECT_TRUE(field->clearButtonRect().isEmpty());
}

TEST_F(Recorder, RecordsAKeyWithAModifierAndNothingElse)
{
    const struct {
        Position key;
        Qt::KeyboardModifiers held;
        const char* recorded; // empty: goes on
    } cases[] = {
        {kDigit5, Qt::NoModifier, ""},
        {kK, Qt::MetaModifier, ""},
        {kEscape, Qt::NoModifier, ""},
        {kEscape, Qt::MetaModifier, ""},
        {kTab, Qt::NoModifier, ""},
        {kTab, Qt::MetaModifier, ""},
        {kDigit5, Qt::MetaModifier, "done cmd 5"},
        {kSemicolon, Qt::MetaModifier, "done cmd K"},
        {kDigit5, Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier, "done ctrl alt shift 5"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.key.scanCode << ' ' << c.recorded);
        startRecoding();
        EXPECT_EQ(press(*field, c.key, c.held), c.key.key != Qt::Key_Tab);
        EXPECT_EQ(calls, *c.recorded ? QByteArrayList{c.recorded} : QByteArrayList());
        EXPECT_EQ(field->isRecoding(), *c.recorded == 0);
        release(*field, c.key, c.held);
        field->exitTypeShortcut();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !field->isTyping(); }, 2000));
    }
}

TEST_F(Recorder, ShowsTheModifiersThatAreHeld)
{
    startRecoding();
    press(*field, kSuper, Qt::NoModifier);
    EXPECT_EQ(shown(), QStringLiteral("⌘"));
    press(*field, kControl, Qt::MetaModifier);
    EXPECT_EQ(shown(), QStringLiteral("⌃⌘"));
    release(*field, kSuper, Qt::MetaModifier | Qt::ControlModifier);
    EXPECT_EQ(shown(), QStringLiteral("⌃"));
    EXPECT_EQ(calls, QByteArrayList());
}

TEST_F(Recorder, TypesUntilTheRecordedKeyIsUp)
{
    startRecoding();
    press(*field, kDigit5, Qt::MetaModifier);
    EXPECT_FALSE(field->isRecoding());
    send(*field, QEvent::KeyRelease, kDigit5, Qt::MetaModifier, true);
    send(*field, QEvent::KeyPress, kDigit5, Qt::MetaModifier, true);
    release(*field, kSuper, Qt::MetaModifier);
    EXPECT_TRUE(field->isTyping());
    EXPECT_EQ(QWidget::keyboardGrabber(), field);
    release(*field, kDigit5, Qt::MetaModifier);
    press(*field, kDigit5, Qt::MetaModifier); // a repeat that nobody calls so
    QTest::qWait(100);
    EXPECT_TRUE(field->isTyping());
    release(*field, kDigit5);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !field->isTyping(); }, 2000));
    EXPECT_EQ(calls, (QByteArrayList{"done cmd 5", "rest"}));
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
}

TEST_F(Recorder, EndsAsItWasLeft)
{
    const auto touchModifier = [this] {
        press(*field, kSuper);
        release(*field, kSuper, Qt::MetaModifier);
    };
    const auto snapBack = [this] { click(field->snapbackButtonRect().center()); };
    const struct {
        const char* how;
        std::function<void()> end;
        QByteArrayList calls;
        const char16_t* shown;
    } cases[] = {
        {"snap-back", snapBack, {"rest"}, u"⌘A"},
        {"snap-back after a modifier",
            [&] {
                touchModifier();
                snapBack();
            },
            {"cancel", "rest"}, u""},
        {"clear", [this] { click(field->clearButtonRect().center()); }, {"done ", "cancel", "rest"}, u""},
        {"another window", [this] { QApplication::setActiveWindow(nullptr); }, {"done ", "cancel", "rest"},
            u""},
        {"another control", [this] { other->setFocus(); }, {"rest"}, u"⌘A"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.how);
        window.show();
        QApplication::setActiveWindow(&window);
        field->setOldShortcutKeyValue(QStringLiteral("a"), ShortcutRules::kCommand);
        startRecoding();
        c.end();
        EXPECT_EQ(calls, c.calls);
        EXPECT_EQ(shown(), QString::fromUtf16(c.shown));
        EXPECT_FALSE(field->isRecoding() || field->isTyping());
        EXPECT_TRUE(field->snapbackButtonRect().isEmpty());
    }
}

TEST_F(Recorder, PassesOnAReleaseOutsideOfIt)
{
    QTest::mousePress(field, Qt::LeftButton);
    QTest::mouseRelease(field, Qt::LeftButton, {}, QPoint(-20, 5));
    EXPECT_FALSE(field->isRecoding());
    QTest::mouseClick(field, Qt::RightButton);
    EXPECT_FALSE(field->isRecoding());
}
