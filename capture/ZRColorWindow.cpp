#include "capture/ZRColorWindow.h"

#include "capture/ColourSwatch.h"
#include "capture/ToolScreen.h"
#include "commonutils/NotificationCenter.h"
#include "customui/PanelLook.h"
#include "settings/AppSettings.h"
#include "settings/SettingsKeys.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

constexpr int kMargin = 16; // points, as all below
constexpr int kGap = 12;
constexpr int kSmallGap = 4;
constexpr QSize kSwatchSize(308, 72);
constexpr QSize kPickSize(22, 22);
constexpr int kFieldHeight = 26;
constexpr qsizetype kLongHtmlText = 6; // the shortest that is no three digits
constexpr int kCopiedMs = 1200;

constexpr QColor kWrong(190, 32, 32);

struct Stepper {
    const char16_t* key;
    int maximum;
    const char16_t* unit;
    bool isRound; // goes on at the other end
};
constexpr std::array<Stepper, 6> kStepperTable{{
    {u"Red", 255, u"", false},
    {u"Green", 255, u"", false},
    {u"Blue", 255, u"", false},
    {u"Hue", 359, u"\u00b0", true},
    {u"Saturation", 100, u"\u2009%", false},
    {u"Lightness", 100, u"\u2009%", false},
}};
constexpr int kFirstOfHsl = 3;

QString text(const QString& key)
{
    return AppSettings::getXMLValueForKeywords(QStringLiteral("Lumora:Color:") + key);
}

QString buttonLook()
{
    return QStringLiteral(
        "QPushButton { background: rgb(42,123,244); color: white; border: 1px solid rgb(42,123,244);"
        " border-radius: 4px; padding: 0 14px; }"
        "QPushButton:hover { background: rgb(66,140,250); }"
        "QPushButton:pressed { background: rgb(28,102,214); }"
        "QPushButton:focus { border-color: rgb(12,66,150); }");
}

bool hasSelection(const QObject* field)
{
    if (const auto* spin = qobject_cast<const QSpinBox*>(field))
        return spin->findChild<QLineEdit*>()->hasSelectedText();
    const auto* edit = qobject_cast<const QLineEdit*>(field);
    return edit && edit->hasSelectedText();
}

}

std::unique_ptr<ZRColorWindow> ZRColorWindow::loadForNib()
{
    return std::unique_ptr<ZRColorWindow>(new ZRColorWindow);
}

ZRColorWindow::ZRColorWindow()
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setAttribute(Qt::WA_QuitOnClose, false);
    setPalette(panelPalette());
    m_copied.setSingleShot(true);
    connect(
        &m_copied, &QTimer::timeout, this, [this] { m_copy->setText(text(QStringLiteral("CopyValue"))); });
    NotificationCenter::defaultCenter().addObserver(*this, QStringLiteral("needChangeClientLanguageRegister"),
        [this](const QVariantMap&) { changeText(); });
    m_picks = ColourRules::readPicks(
        AppSettings::getFromUserDefaultsObject(SettingsKeys::kLastPicks).toStringList());
    build();
    changeText();
    showPicks();
    showColour();
}

void ZRColorWindow::build()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kGap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    m_swatch = new ColourSwatch(kSwatchSize, Qt::NoFocus, this);
    m_swatch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    column->addWidget(m_swatch);
    column->addLayout(steppers());
    column->addWidget(separator());
    column->addLayout(htmlRow());
    column->addWidget(separator());
    column->addLayout(pickRow());
}

QLayout* ZRColorWindow::steppers()
{
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2 * kSmallGap);
    grid->setHorizontalSpacing(2 * kSmallGap);
    grid->setColumnMinimumWidth(2, kGap);
    for (int i = 0; i < kSteppers; ++i) {
        const int row = i % kFirstOfHsl;
        const int column = i < kFirstOfHsl ? 0 : 3;
        m_steppers[i] = makeStepper(i);
        grid->addWidget(makeCaption(QString::fromUtf16(kStepperTable[i].key), m_steppers[i]), row, column);
        grid->addWidget(m_steppers[i], row, column + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    return grid;
}

QSpinBox* ZRColorWindow::makeStepper(int index)
{
    const Stepper& look = kStepperTable[index];
    auto* stepper = new QSpinBox(this);
    stepper->setRange(0, look.maximum);
    stepper->setSuffix(QString::fromUtf16(look.unit));
    stepper->setWrapping(look.isRound);
    stepper->setAlignment(Qt::AlignRight);
    stepper->setFixedHeight(kFieldHeight);
    stepper->installEventFilter(this);
    connect(stepper, &QSpinBox::valueChanged, this, [this, index] { stepperChanged(index); });
    return stepper;
}

QLayout* ZRColorWindow::htmlRow()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    m_html = new QLineEdit(this);
    m_html->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_html->setTextMargins(kSmallGap, 0, kSmallGap, 0);
    m_html->setFixedHeight(kFieldHeight);
    m_html->installEventFilter(this);
    connect(m_html, &QLineEdit::textEdited, this, [this](const QString& text) { htmlEdited(text); });
    connect(m_html, &QLineEdit::editingFinished, this, [this] { htmlFinished(); });
    row->addWidget(makeCaption(QStringLiteral("Html"), m_html));
    row->addWidget(m_html, 1);
    row->addWidget(makeCopyButton());
    return row;
}

QPushButton* ZRColorWindow::makeCopyButton()
{
    m_copy = new QPushButton(this);
    m_copy->setStyleSheet(buttonLook());
    m_copy->setFixedHeight(kFieldHeight);
    m_copy->setFocus(); // no field waits for text, so no caret blinks
    connect(m_copy, &QPushButton::clicked, this, [this] { copyValue(); });
    return m_copy;
}

QLayout* ZRColorWindow::pickRow()
{
    auto* swatches = new QWidget(this);
    auto* row = new QHBoxLayout(swatches);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kSmallGap);
    for (ColourSwatch*& swatch : m_pickSwatches) {
        swatch = new ColourSwatch(kPickSize, Qt::StrongFocus, swatches);
        connect(swatch, &ColourSwatch::clicked, this, [this, swatch] {
            m_colour.setRgb(swatch->colour());
            showColour();
        });
        row->addWidget(swatch);
    }
    row->addStretch(1);
    auto* column = new QVBoxLayout;
    column->setSpacing(2 * kSmallGap);
    column->addWidget(makeCaption(QStringLiteral("LastPicks"), swatches));
    column->addWidget(swatches);
    return column;
}

QWidget* ZRColorWindow::separator()
{
    auto* line = new QWidget(this);
    makeSeparator(*line);
    return line;
}

QLabel* ZRColorWindow::makeCaption(const QString& key, QWidget* of)
{
    auto* label = new QLabel(this);
    label->setBuddy(of);
    m_captions.push_back({key, label, of});
    return label;
}

void ZRColorWindow::setColorPanelWithColor(QRgb colour)
{
    m_picks = ColourRules::withPick(m_picks, colour);
    AppSettings::saveToUserDefaultsForKeyObjectValue(
        SettingsKeys::kLastPicks, QVariant(ColourRules::storedPicks(m_picks)));
    m_colour.setRgb(colour);
    showPicks();
    showColour();
}

void ZRColorWindow::showOn(const DisplayRecord& display)
{
    hide();
    if (QScreen* screen = ToolScreen::qtScreen(display)) {
        setScreen(screen);
        adjustSize();
        move(screen->availableGeometry().center() - rect().center());
    }
    show();
    raise();
    activateWindow();
}

void ZRColorWindow::copyValue()
{
    QGuiApplication::clipboard()->setText(ColourRules::htmlText(m_colour.rgb()));
    m_copy->setText(text(QStringLiteral("Copied")));
    m_copied.start(kCopiedMs);
}

// A field keeps the copy key for what is selected in it.
bool ZRColorWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy) ||
        hasSelection(watched))
        return false;
    copyValue();
    return true;
}

void ZRColorWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn || event->matches(QKeySequence::Copy))
        copyValue();
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void ZRColorWindow::stepperChanged(int index)
{
    const auto value = [this](int i) { return m_steppers[i]->value(); };
    if (index < kFirstOfHsl)
        m_colour.setRgb(qRgb(value(0), value(1), value(2)));
    else
        m_colour.setHsl({value(3), value(4), value(5)});
    showColour();
}

// While it is typed a short text may be the beginning of a long one.
void ZRColorWindow::htmlEdited(const QString& text)
{
    const auto colour = ColourRules::fromHtmlText(text);
    showWrong(!colour);
    if (colour && text.trimmed().size() >= kLongHtmlText) {
        m_colour.setRgb(*colour);
        showColour(m_html);
    }
}

void ZRColorWindow::htmlFinished()
{
    if (const auto colour = ColourRules::fromHtmlText(m_html->text()); colour && *colour != m_colour.rgb())
        m_colour.setRgb(*colour);
    showColour();
}

// In all fields but the one whose text is being typed.
void ZRColorWindow::showColour(const QWidget* edited)
{
    const QRgb rgb = m_colour.rgb();
    const ColourRules::Hsl& hsl = m_colour.hsl();
    const std::array<int, kSteppers> values{
        qRed(rgb), qGreen(rgb), qBlue(rgb), hsl.hue, hsl.saturation, hsl.lightness};
    for (int i = 0; i < kSteppers; ++i) {
        const QSignalBlocker silence(m_steppers[i]);
        m_steppers[i]->setValue(values[i]);
    }
    m_swatch->setColour(rgb);
    if (edited == m_html)
        return;
    m_html->setText(ColourRules::htmlText(rgb));
    showWrong(false);
}

void ZRColorWindow::showWrong(bool isWrong)
{
    QPalette colours = palette();
    if (isWrong)
        colours.setColor(QPalette::Text, kWrong);
    m_html->setPalette(colours);
}

void ZRColorWindow::showPicks()
{
    for (qsizetype i = 0; i < ColourRules::kMostPicks; ++i) {
        const bool isThere = i < m_picks.size();
        m_pickSwatches[i]->setVisible(isThere);
        if (!isThere)
            continue;
        m_pickSwatches[i]->setColour(m_picks[i]);
        m_pickSwatches[i]->setToolTip(ColourRules::htmlText(m_picks[i]));
    }
}

void ZRColorWindow::changeText()
{
    setWindowTitle(text(QStringLiteral("Title")));
    for (const Caption& caption : m_captions) {
        caption.label->setText(text(caption.key));
        caption.of->setAccessibleName(text(caption.key));
    }
    // As wide as the longer of its two texts, so that nothing moves when it tells that the value was copied.
    m_copy->setMinimumWidth(0);
    m_copy->setText(text(QStringLiteral("Copied")));
    const int width = m_copy->sizeHint().width();
    m_copy->setText(text(QStringLiteral("CopyValue")));
    m_copy->setMinimumWidth(std::max(width, m_copy->sizeHint().width()));
    layout()->activate(); // at once: nobody sees a text that its place is too small for
}
