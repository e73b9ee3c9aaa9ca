#include "capture/ZRColorWindow.h"

#include "capture/ColourSwatch.h"
#include "commonutils/NotificationCenter.h"
#include "settings/AppSettings.h"
#include "settings/UserDefaults.h"
#include "tests/app/Languages.h"
#include "tests/app/TextFit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr QRgb kBlue = qRgb(50, 166, 255);

// A shown colour window over settings of its own.
class ZRColorWindowTest : public testing::Test {
protected:
    void SetUp() override
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        open();
    }
    void TearDown() override
    {
        window.reset();
        UserDefaults::setStandardUserDefaults(nullptr);
    }
    void open()
    {
        window = ZRColorWindow::loadForNib();
        window->setColorPanelWithColor(kBlue);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    enum Stepper { Red, Green, Blue, Hue, Saturation, Lightness };
    QSpinBox& stepper(Stepper which) { return *window->findChildren<QSpinBox*>().at(which); }
    std::vector<int> values()
    {
        std::vector<int> all;
        for (const QSpinBox* box : window->findChildren<QSpinBox*>())
            all.push_back(box->value());
        return all;
    }
    QLineEdit& html() { return *window->findChildren<QLineEdit*>().last(); }
    void type(const char* text)
    {
        html().selectAll();
        QTest::keyClicks(&html(), QLatin1String(text));
    }
    // The colours of the last picks that are shown.
    std::vector<QRgb> picks()
    {
        std::vector<QRgb> colours;
        for (const ColourSwatch* swatch : window->findChildren<ColourSwatch*>())
            if (swatch->focusPolicy() != Qt::NoFocus && swatch->isVisible())
                colours.push_back(swatch->colour());
        return colours;
    }
    static QString copied() { return QGuiApplication::clipboard()->text(); }

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("test"), QStringLiteral("older")};
    std::unique_ptr<ZRColorWindow> window;
};

class ColorWindowLanguages : public LanguagesTest { };

} // namespace

TEST_F(ZRColorWindowTest, AllFieldsShowTheColourThatOneOfThemSets)
{
    struct Case {
        const char* what;
        std::function<void()> edit;
        QRgb colour;
        std::vector<int> values;
    };
    const Case cases[] = {
        {"the pick", [] {}, kBlue, {50, 166, 255, 206, 100, 60}},
        {"hue", [&] { stepper(Hue).setValue(120); }, qRgb(51, 255, 51), {51, 255, 51, 120, 100, 60}},
        {"hue goes round", [&] { stepper(Hue).setValue(359), stepper(Hue).stepBy(1); }, qRgb(255, 51, 51),
            {255, 51, 51, 0, 100, 60}},
        {"hue back", [&] { stepper(Hue).setValue(206); }, kBlue, {50, 166, 255, 206, 100, 60}},
        {"red", [&] { stepper(Red).setValue(0); }, qRgb(0, 166, 255), {0, 166, 255, 201, 100, 50}},
        {"red stops", [&] { stepper(Red).stepBy(-1); }, qRgb(0, 166, 255), {0, 166, 255, 201, 100, 50}},
        {"lightness", [&] { stepper(Lightness).setValue(100); }, 0xffffffff, {255, 255, 255, 201, 100, 100}},
        {"text", [&] { type("#102030"); }, 0xff102030, {16, 32, 48, 210, 50, 13}},
        {"text that is none", [&] { type("#10203"); }, 0xff102030, {16, 32, 48, 210, 50, 13}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        c.edit();
        EXPECT_EQ(window->colour(), c.colour);
        EXPECT_EQ(values(), c.values);
    }
    EXPECT_EQ(html().text(), QStringLiteral("#10203")); // what is typed stays until it is finished
    QTest::keyClick(&html(), Qt::Key_Return);
    EXPECT_EQ(html().text(), QStringLiteral("#102030"));
    type("fa0");
    EXPECT_EQ(window->colour(), 0xff102030); // it might be going on
    QTest::keyClick(&html(), Qt::Key_Return);
    EXPECT_EQ(window->colour(), 0xffffaa00);
    EXPECT_EQ(copied(), QStringLiteral("#ffaa00"));
}

TEST_F(ZRColorWindowTest, KeysAndTheButtonCopyTheValue)
{
    struct Case {
        const char* what;
        std::function<void()> act;
        const char* expected;
    };
    const auto copyIn = [this](QWidget& field) { QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier); };
    const Case cases[] = {
        {"button", [&] { window->findChild<QPushButton*>()->click(); }, "#32a6ff"},
        {"key in no field", [&] { copyIn(*window); }, "#32a6ff"},
        {"Return in no field", [&] { QTest::keyClick(window.get(), Qt::Key_Return); }, "#32a6ff"},
        {"Return in a stepper", [&] { QTest::keyClick(&stepper(Hue), Qt::Key_Return); }, "#32a6ff"},
        {"key in a stepper", [&] { stepper(Red).clearFocus(), copyIn(stepper(Red)); }, "#32a6ff"},
        {"key in the text", [&] { html().setCursorPosition(2), copyIn(html()); }, "#32a6ff"},
        {"selected text", [&] { html().setSelection(1, 2), copyIn(html()); }, "32"},
        {"selected number", [&] { stepper(Green).selectAll(), copyIn(stepper(Green)); }, "166"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));
        c.act();
        EXPECT_EQ(copied(), QLatin1String(c.expected));
    }
}

TEST_F(ZRColorWindowTest, TheLastPicksAreKeptAndCanBeTakenAgain)
{
    window->setColorPanelWithColor(0xff010203);
    stepper(Red).setValue(99); // what is edited is no pick
    EXPECT_EQ(picks(), std::vector<QRgb>({0xff010203, kBlue}));
    open();
    EXPECT_EQ(picks(), std::vector<QRgb>({kBlue, 0xff010203}));
    for (ColourSwatch* swatch : window->findChildren<ColourSwatch*>())
        if (swatch->colour() == 0xff010203)
            QTest::keyClick(swatch, Qt::Key_Space);
    EXPECT_EQ(window->colour(), 0xff010203);
    EXPECT_EQ(picks().size(), 2U);
}

TEST_F(ZRColorWindowTest, EscapeClosesItFromEveryField)
{
    for (QWidget* field : {static_cast<QWidget*>(&html()), static_cast<QWidget*>(&stepper(Blue))}) {
        window->show();
        QTest::keyClick(field, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    }
}

TEST_F(ColorWindowLanguages, EveryTextFollowsTheLanguageAndFits)
{
    const auto window = ZRColorWindow::loadForNib();
    window->setColorPanelWithColor(kBlue);
    window->show();
    const auto text = [](const char16_t* key) {
        return AppSettings::getXMLValueForKeywords(QStringLiteral("Lumora:Color:") + QString::fromUtf16(key));
    };
    inEveryLanguage([&] {
        NotificationCenter::defaultCenter().post(QStringLiteral("needChangeClientLanguageRegister"));
        EXPECT_EQ(window->windowTitle(), text(u"Title"));
        EXPECT_EQ(window->findChild<QSpinBox*>()->accessibleName(), text(u"Red"));
        const TextFit fit = textFitOf(*window);
        for (const char16_t* key : {u"Red", u"Green", u"Blue", u"Hue", u"Saturation", u"Lightness", u"Html",
                 u"CopyValue", u"LastPicks"})
            EXPECT_TRUE(fit.texts.contains(text(key))) << qPrintable(text(key));
        EXPECT_EQ(fit.cut, QStringList()) << qPrintable(fit.cut.join(QLatin1Char('|')));
        window->copyValue();
        EXPECT_EQ(textFitOf(*window).cut, QStringList());
    });
}
