#include "output/ZRCustomAlert.h"

#include "commonutils/ModalSession.h"
#include "customui/ZRHoverButton.h"
#include "output/AlertRules.h"

#include <QFontMetricsF>
#include <QTest>

#include <gtest/gtest.h>

namespace {

std::unique_ptr<ZRCustomAlert> question(const QString& title)
{
    auto alert = std::make_unique<ZRCustomAlert>();
    alert->title()->setText(title);
    alert->btnDefault()->setTitle(QStringLiteral("Retry"));
    alert->btnCancel()->setTitle(QStringLiteral("Cancel"));
    alert->btnOther()->setTitle(QStringLiteral("Other"));
    alert->updateMessage(QStringLiteral("What now?"));
    return alert;
}

QVariantMap attributes(
    const char* name, const char* words, const QVariant& word, const char* values, const QVariant& value)
{
    return {{QStringLiteral("attributesName"), QLatin1String(name)}, {QLatin1String(words), word},
        {QLatin1String(values), value}};
}

}

TEST(AlertRules, GrowForWhatTheFirstCharacterForetells)
{
    QFont font;
    font.setPixelSize(13);
    const QFontMetricsF metrics(font);
    const auto growth = [&](const QString& text) { return AlertRules::growthFor(text, font, 300); };
    for (const QString& text : {QString(), QStringLiteral("   \n "), QStringLiteral("short")})
        EXPECT_EQ(growth(text), 0) << qPrintable(text);
    const QString wide(600, QLatin1Char('W'));
    const auto perLine = qsizetype(300 / metrics.horizontalAdvance(QLatin1Char('W')) + 1);
    EXPECT_EQ(growth(wide), metrics.height() * double(600 / perLine + 1) - 70);
    EXPECT_EQ(growth(QStringLiteral("  ") + wide), growth(wide + QStringLiteral("  ")))
        << "blanks are passed over";
    EXPECT_LT(growth(QLatin1Char('i') + wide), growth(wide) / 2) << "only the first character is measured";
}

TEST(AlertRules, MarkWordsAndEscapeTheRest)
{
    const QVariantMap url{{QStringLiteral("url"), QStringLiteral("https://a.b/?x=1&y=\"2\"")}};
    const QString linked = AlertRules::markedMessage(QStringLiteral("a <b> here & here"),
        attributes("linkAttributes", "linkReplaceString", QStringLiteral("here"), "links", url));
    EXPECT_EQ(linked.count(QStringLiteral("<a href=\"https://a.b/?x=1&amp;y=&quot;2&quot;\"")), 2);
    EXPECT_TRUE(linked.startsWith(QStringLiteral("a &lt;b&gt; <a ")));
    const QVariantMap red{{QStringLiteral("highlightColor"), QColor(Qt::red)}};
    EXPECT_EQ(AlertRules::markedMessage(QStringLiteral("one two"),
                  attributes("highlightAttributes", "highlightReplaceString",
                      QStringList{QStringLiteral("two")}, "highlightColors", QVariantList{red})),
        QStringLiteral("one <span style=\"color:#ff0000\">two</span>"));
    EXPECT_EQ(AlertRules::markedMessage(QStringLiteral("a\nb"), attributes("else", "x", 1, "y", 2)),
        QStringLiteral("a<br/>b"));
    EXPECT_EQ(AlertRules::addURLs(QStringLiteral("text"), {QStringLiteral("u")}, {QString()}),
        QStringLiteral("text"));
}

TEST(ZRCustomAlert, AnswersByKeyAndByButton)
{
    struct Case {
        const char* way;
        std::function<void(ZRCustomAlert&)> act;
        int code;
    };
    const Case cases[] = {
        {"Return", [](ZRCustomAlert& a) { QTest::keyClick(&a, Qt::Key_Return); }, 1},
        {"Escape", [](ZRCustomAlert& a) { QTest::keyClick(&a, Qt::Key_Escape); }, 0},
        {"Escape in the message", [](ZRCustomAlert& a) { QTest::keyClick(a.message(), Qt::Key_Escape); }, 0},
        {"Return in the message", [](ZRCustomAlert& a) { QTest::keyClick(a.message(), Qt::Key_Return); }, 1},
        {"default", [](ZRCustomAlert& a) { a.btnDefault()->sendAction(); }, 1},
        {"cancel", [](ZRCustomAlert& a) { a.btnCancel()->sendAction(); }, 0},
        {"other", [](ZRCustomAlert& a) { a.btnOther()->sendAction(); }, 2},
        {"the window's close button", [](ZRCustomAlert& a) { a.close(); }, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.way);
        std::vector<int> answers;
        ZRCustomAlert::run(question(QString()), [&](int code) { answers.push_back(code); });
        ASSERT_TRUE(ZRCustomAlert::current());
        EXPECT_TRUE(ModalSession::isRunning());
        c.act(*ZRCustomAlert::current());
        EXPECT_EQ(answers, std::vector{c.code});
        EXPECT_FALSE(ModalSession::isRunning());
        EXPECT_FALSE(ZRCustomAlert::current());
    }
}

TEST(ZRCustomAlert, WaitsForTheOnesBefore)
{
    QStringList answered;
    for (const QString& title : {QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")})
        ZRCustomAlert::run(question(title), [&answered, title](int) {
            answered << title;
            if (title == QLatin1String("first"))
                ZRCustomAlert::run(question(QStringLiteral("late")), [](int) {});
        });
    for (const char* title : {"first", "second", "third", "late"}) {
        ZRCustomAlert* alert = ZRCustomAlert::current();
        ASSERT_TRUE(alert);
        EXPECT_TRUE(alert->isVisible());
        EXPECT_EQ(alert->title()->text(), QLatin1String(title));
        alert->alertReturnOther();
        alert->alertReturnOther(); // no second answer
    }
    EXPECT_EQ(answered.join(QLatin1Char(' ')), QStringLiteral("first second third"));
}

TEST(ZRCustomAlert, TakesTextsOfAnyLength)
{
    auto alert = question(QString(5000, QLatin1Char('t')));
    const QSize usual = alert->size();
    alert->updateMessage({});
    EXPECT_EQ(alert->size(), usual);
    alert->updateMessage(QString(5000, QLatin1Char('w')));
    EXPECT_GT(alert->height(), usual.height());
    EXPECT_LT(alert->height(), alert->screen()->geometry().height());
    for (const ZRHoverButton* button : alert->findChildren<ZRHoverButton*>())
        EXPECT_TRUE(alert->rect().contains(button->geometry()));
}
