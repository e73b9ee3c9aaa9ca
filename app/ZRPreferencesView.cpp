#include "app/ZRPreferencesView.h"

#include "app/DnHotkeyManager.h"
#include "app/EndpointTest.h"
#include "app/EventMonitor.h"
#include "app/HotKeyNotice.h"
#include "app/MenuLook.h"
#include "app/ShortcutRules.h"
#include "app/ZRShortcutRecorderControl.h"
#include "commonutils/CommLog.h"
#include "commonutils/NotificationCenter.h"
#include "customui/PanelLook.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/ZRBookmark.h"
#include "settings/ZRLangIdMenuItem.h"
#include "ui_ZRPreferencesView.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QStyle>

namespace {

const QString kIntent = QStringLiteral("shortcut intent");
const QString kRegionIntent = QStringLiteral("regionScreenshot");
const QString kFullIntent = QStringLiteral("fullScreenshot");
constexpr int kBestResolution = 8;
constexpr int kNominalResolution = 16;
constexpr int kEditionWithoutAutoLaunch = 2;
constexpr const char* kFormats[] = {"png", "jpg", "bmp", "tiff", "gif"};

QString text(QStringView key)
{
    return AppSettings::getXMLValueForKeywords(key);
}

void showText(QLabel* label, const QString& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

void showOld(ZRShortcutRecorderControl* field, const QString& hotKey)
{
    field->setOldShortcutKeyValue(
        AppSettings::getKeyValueOfShortcut(hotKey), AppSettings::getModifiterFlagsValueOfShortcut(hotKey));
}

bool isForRegion(const ZRShortcutRecorderControl& field)
{
    return field.userInfo().value(kIntent) == kRegionIntent;
}

void storeHotKey(const ZRShortcutRecorderControl& field, const QString& hotKey)
{
    if (isForRegion(field))
        AppSettings::setRegionScreenShotHotKey(hotKey);
    else
        AppSettings::setFullScreenShotHotKey(hotKey);
}

// Not before it is seen: the look takes its time.
void dress(QMenu& menu)
{
    if (menu.styleSheet().isEmpty())
        menu.setStyleSheet(checkMenuStyleSheet());
}

// A refusal without a text of its own is still a refusal.
QString refusalShown(const QString& reason, const QString& hotKey)
{
    if (reason.isEmpty())
        return {};
    const QString known = textOfRefusal(reason);
    return known.isEmpty() ? text(u"Lumora:HotKey:Refused")
                                 .replace(QLatin1String("[#Hotkey#]"), ShortcutRules::capitalized(hotKey))
                           : known;
}

}

ZRPreferencesView::ZRPreferencesView(Workspace& workspace, EndpointTest& endpointTest, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_endpointTest(endpointTest)
    , m_ui(std::make_unique<Ui::ZRPreferencesView>())
{
    setPalette(panelPalette());
    m_ui->setupUi(this);
    build();
    connectOptions();
    connectChoices();
}

ZRPreferencesView::~ZRPreferencesView() = default;

void ZRPreferencesView::build()
{
    for (QWidget* line : std::initializer_list<QWidget*>{m_ui->lineBeforeUpload, m_ui->lineBeforePicture})
        makeSeparator(*line);
    for (QWidget* button : std::initializer_list<QWidget*>{m_ui->mAutoStartBtn, m_ui->mConfirmBeforeUploadBtn,
             m_ui->mOpenWebLinkAfterUpload, m_ui->mNormalQualityBtn, m_ui->mRetinaQualityBtn,
             m_ui->mSecureMosaicBtn, m_ui->mKeepLastCaptureBtn})
        markInAccent(*button);
    for (QLabel* label : {m_ui->mRegionRefusalLabel, m_ui->mFullRefusalLabel, m_ui->mFolderProblemLabel,
             m_ui->mEndpointResultLabel})
        label->hide();
    m_ui->mRegionShortcutsField->setUserInfo({{kIntent, kRegionIntent}});
    m_ui->mFullShortcutsField->setUserInfo({{kIntent, kFullIntent}});
    for (auto* field : {m_ui->mRegionShortcutsField, m_ui->mFullShortcutsField}) {
        field->setDelegate(this);
        field->onTyping = [this] { typingChanged(); };
    }
    NotificationCenter::defaultCenter().addObserver(*this, QString::fromUtf16(DnHotkeyManager::kStateChanged),
        [this](const QVariantMap&) { showRefusals(); });
    buildMenus();
}

void ZRPreferencesView::buildMenus()
{
    mLangMenu = new QMenu(this);
    m_formatMenu = new QMenu(this);
    for (QMenu* menu : {mLangMenu, m_formatMenu})
        connect(menu, &QMenu::aboutToShow, menu, [menu] { dress(*menu); });
    m_ui->mLangMenuBtn->setMenu(mLangMenu);
    m_ui->mFileFormatBtn->setMenu(m_formatMenu);
    auto* group = new QActionGroup(m_formatMenu);
    for (const char* format : kFormats) {
        const QString title = QLatin1String(format);
        QAction* item = group->addAction(m_formatMenu->addAction(title));
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [this, title] { changeFileFormat(title); });
    }
}

void ZRPreferencesView::updateLangMenu()
{
    if (mLangMenu->actions().size() == qsizetype(LanguageCatalogue::languages().size()))
        return;
    mLangMenu->clear();
    for (const LanguageCatalogue::Language& language : LanguageCatalogue::languages()) {
        auto* item = new ZRLangIdMenuItem(language.id, language.name, mLangMenu);
        connect(item, &QAction::triggered, this, [this, item] { changeLanguage(item->langId()); });
        mLangMenu->addAction(item);
    }
}

void ZRPreferencesView::connectOptions()
{
    connect(m_ui->mAutoStartBtn, &QCheckBox::clicked, this,
        [this](bool isOn) { switchStartAppWhenComputerPowerOn(isOn); });
    const std::pair<QCheckBox*, void (*)(bool)> switches[] = {
        {m_ui->mConfirmBeforeUploadBtn, AppSettings::setIsNeedShowUploadToCloudView},
        {m_ui->mOpenWebLinkAfterUpload, AppSettings::setIsOpenScreenshotLinkAfterUpload},
        {m_ui->mSecureMosaicBtn, AppSettings::setMosaicSecure},
        {m_ui->mKeepLastCaptureBtn, AppSettings::setLastCaptureKept},
    };
    for (const auto& [button, store] : switches)
        connect(button, &QCheckBox::clicked, this, store);
    connect(m_ui->mNormalQualityBtn, &QRadioButton::clicked, this,
        [this] { changeTheImageQualityUserNeed(kNominalResolution); });
    connect(m_ui->mRetinaQualityBtn, &QRadioButton::clicked, this,
        [this] { changeTheImageQualityUserNeed(kBestResolution); });
}

void ZRPreferencesView::connectChoices()
{
    connect(
        m_ui->mChooseSavePathBtn, &QPushButton::clicked, this, [this] { openScreenShotSavePathSelecter(); });
    connect(m_ui->mOpenFolder, &QPushButton::clicked, this, [this] { openFolder(); });
    connect(m_ui->mEndpointField, &QLineEdit::textEdited, this, [this](const QString& address) {
        AppSettings::setUploadEndpoint(address.trimmed());
        allowTest();
    });
    connect(m_ui->mEndpointField, &QLineEdit::returnPressed, m_ui->mEndpointTestBtn, &QPushButton::click);
    connect(m_ui->mEndpointTestBtn, &QPushButton::clicked, this, [this] { testEndpoint(); });
}

void ZRPreferencesView::initialize()
{
    updateLangMenu();
    showChecks();
    showShortcuts();
    showFolder();
    showFormat();
    if (m_ui->mEndpointField->text().trimmed() != AppSettings::uploadEndpoint())
        m_ui->mEndpointField->setText(AppSettings::uploadEndpoint());
    showText(m_ui->mEndpointResultLabel, {});
    allowTest();
    changeText();
}

void ZRPreferencesView::showChecks()
{
    m_ui->mAutoStartBtn->setHidden(AppSettings::AppVersionType() == kEditionWithoutAutoLaunch);
    const std::pair<QAbstractButton*, bool> states[] = {
        {m_ui->mAutoStartBtn, AppSettings::isNeedAppStartWhenComputerPowerOn()},
        {m_ui->mConfirmBeforeUploadBtn, AppSettings::isNeedShowUploadToCloudView()},
        {m_ui->mOpenWebLinkAfterUpload, AppSettings::IsOpenScreenshotLinkAfterUpload()},
        {m_ui->mSecureMosaicBtn, AppSettings::isMosaicSecure()},
        {m_ui->mKeepLastCaptureBtn, AppSettings::isLastCaptureKept()},
    };
    for (const auto& [button, isOn] : states)
        button->setChecked(isOn);
    const bool isBest = AppSettings::imageQualityUserNeed() == kBestResolution;
    (isBest ? m_ui->mRetinaQualityBtn : m_ui->mNormalQualityBtn)->setChecked(true);
}

void ZRPreferencesView::showShortcuts()
{
    if (!m_ui->mRegionShortcutsField->isTyping())
        showOld(m_ui->mRegionShortcutsField, AppSettings::regionScreenShotHotKey());
    if (!m_ui->mFullShortcutsField->isTyping())
        showOld(m_ui->mFullShortcutsField, AppSettings::fullScreenShotHotKey());
}

void ZRPreferencesView::showRefusals()
{
    const QString region = refusalShown(EventMonitor::regionRefusal(), AppSettings::regionScreenShotHotKey());
    const QString full = refusalShown(EventMonitor::fullRefusal(), AppSettings::fullScreenShotHotKey());
    m_ui->mRegionShortcutsField->setRefusal(region);
    m_ui->mFullShortcutsField->setRefusal(full);
    showText(m_ui->mRegionRefusalLabel, region);
    showText(m_ui->mFullRefusalLabel, full);
    sizeChanged();
}

void ZRPreferencesView::showFolder()
{
    const QString folder = AppSettings::choosedScreenshotSavePath();
    m_ui->mSelectedSavePath->setText(folder);
    m_ui->mSelectedSavePath->setCursorPosition(0);
    m_ui->mSelectedSavePath->setToolTip(folder);
    const QFileInfo info(folder);
    const bool isUsable = info.isDir() && info.isWritable();
    showText(m_ui->mFolderProblemLabel,
        isUsable ? QString()
                 : text(u"Lumora:Capture:FolderUnwritable").replace(QLatin1String("[#FilePath#]"), folder));
}

void ZRPreferencesView::showFormat()
{
    const QString title = AppSettings::screenshotType().mid(1);
    m_ui->mFileFormatBtn->setText(title);
    for (QAction* item : m_formatMenu->actions())
        item->setChecked(item->text() == title);
}

void ZRPreferencesView::changeText()
{
    const struct {
        QWidget* widget; // has a "text" or a "title"
        const char16_t* key;
        const char* suffix;
    } texts[] = {
        {m_ui->mGeneralBox, u"Options:General:Title", ""},
        {m_ui->mAutoStartBtn, u"Options:General:AutoStart", ""},
        {m_ui->mLanguageLabel, u"Comm:Language", ":"},
        {m_ui->mLangMenuBtn, u"LangName", ""},
        {m_ui->mShortcutBox, u"Options:Hotkey:Title", ""},
        {m_ui->mRegionShortcutLabel, u"Comm:RegionScreenshot", ":"},
        {m_ui->mFullShortcutLabel, u"Comm:FullScreenshot", ":"},
        {m_ui->mScreenshotBox, u"Options:Capture:Title", ""},
        {m_ui->mChooseFolderToSaveLabel, u"Options:Capture:ChooseFolderToSave", ":"},
        {m_ui->mChooseSavePathBtn, u"Comm:Change", "..."},
        {m_ui->mOpenFolder, u"Button:OpenFolder", ""},
        {m_ui->mConfirmBeforeUploadBtn, u"Options:Capture:ConfirmBeforeUpload", ""},
        {m_ui->mOpenWebLinkAfterUpload, u"Upload:OpenWebpage", ""},
        {m_ui->mEndpointLabel, u"Lumora:Upload:Endpoint", ":"},
        {m_ui->mEndpointTestBtn, u"Lumora:Upload:Test", ""},
        {m_ui->mImageQualityLabel, u"Options:Capture:ImageQuality", ""},
        {m_ui->mNormalQualityBtn, u"Options:Capture:NormalQuality", ""},
        {m_ui->mRetinaQualityBtn, u"Options:Capture:RetinaQuality", ""},
        {m_ui->mFileFormatLabel, u"SaveAll:FileFormat", ""},
        {m_ui->mSecureMosaicBtn, u"Lumora:Options:SecureMosaic", ""},
        {m_ui->mKeepLastCaptureBtn, u"Lumora:Options:KeepLastCapture", ""},
    };
    for (const auto& [widget, key, suffix] : texts) {
        const char* property = qobject_cast<QGroupBox*>(widget) ? "title" : "text";
        widget->setProperty(property, QString(text(key) + QLatin1String(suffix)));
    }
    for (QAction* item : mLangMenu->actions())
        item->setChecked(static_cast<ZRLangIdMenuItem*>(item)->langId() == AppSettings::ClientLanguage());
    for (auto* field : {m_ui->mRegionShortcutsField, m_ui->mFullShortcutsField}) {
        field->setClickPlaceholder(text(u"Options:Hotkey:ClickToSetShortcut"));
        field->setTypeShortcutPlaceholder(text(u"Options:Hotkey:TypeShortcut"));
    }
    m_ui->mRegionShortcutsField->setAccessibleName(text(u"Comm:RegionScreenshot"));
    m_ui->mFullShortcutsField->setAccessibleName(text(u"Comm:FullScreenshot"));
    showFolder();
    showRefusals();
}

void ZRPreferencesView::settleSize()
{
    for (QWidget* part : findChildren<QWidget*>())
        part->ensurePolished();
    for (const QGroupBox* box : {m_ui->mGeneralBox, m_ui->mShortcutBox, m_ui->mScreenshotBox})
        box->layout()->activate();
    layout()->activate();
    adjustSize();
}

bool ZRPreferencesView::isRecoding() const
{
    return m_ui->mRegionShortcutsField->isRecoding() || m_ui->mFullShortcutsField->isRecoding();
}

void ZRPreferencesView::exitTypeShortcut()
{
    m_ui->mRegionShortcutsField->exitTypeShortcut();
    m_ui->mFullShortcutsField->exitTypeShortcut();
}

void ZRPreferencesView::shortcutRecordDidDone(
    ZRShortcutRecorderControl& control, const QString& keyValue, quint32 modifierFlagsValue)
{
    storeHotKey(control, ShortcutRules::hotKeyString(keyValue, modifierFlagsValue));
    NotificationCenter::defaultCenter().post(QStringLiteral("needUpdateHotKeyBindRegister"),
        {{QStringLiteral("needUpdateHotKeyName"),
            isForRegion(control) ? QStringLiteral("regionHotKey") : QStringLiteral("fullHotKey")}});
}

void ZRPreferencesView::shortcutRecordDidCancel(ZRShortcutRecorderControl& control)
{
    EventMonitor::unregisterHotKeyMonitorWithKeyName(
        isForRegion(control) ? AppSettings::regionScreenShotHotKey() : AppSettings::fullScreenShotHotKey());
    storeHotKey(control, QString());
}

void ZRPreferencesView::typingChanged()
{
    const bool isTyping = m_ui->mRegionShortcutsField->isTyping() || m_ui->mFullShortcutsField->isTyping();
    EventMonitor::setResting(isTyping);
    showShortcuts();
    if (!isTyping)
        showRefusals();
    if (onTyping)
        onTyping();
}

void ZRPreferencesView::switchStartAppWhenComputerPowerOn(bool isOn)
{
    AppSettings::setNeedAppStartWhenComputerPowerOn(isOn);
    if (isOn)
        AppSettings::registerAppLaunchWhenComputerPowerOn();
    else
        AppSettings::unregisterAppLaunchWhenComputerPowerOn();
}

void ZRPreferencesView::changeLanguage(const QString& langId)
{
    if (langId == AppSettings::ClientLanguage())
        return changeText(); // the item was switched off by the click
    AppSettings::setClientLanguage(langId);
    NotificationCenter::defaultCenter().post(QStringLiteral("needChangeClientLanguageRegister"));
}

void ZRPreferencesView::changeTheImageQualityUserNeed(int quality)
{
    AppSettings::setImageQuality(quality);
}

void ZRPreferencesView::changeFileFormat(const QString& title)
{
    AppSettings::setScreenshotType(QLatin1Char('.') + title);
    showFormat();
}

void ZRPreferencesView::openScreenShotSavePathSelecter()
{
    if (m_folderDialog)
        return m_folderDialog->activateWindow();
    m_folderDialog = new QFileDialog(
        window(), text(u"Options:Capture:ChooseFolderToSave"), AppSettings::choosedScreenshotSavePath());
    m_folderDialog->setFileMode(QFileDialog::Directory);
    m_folderDialog->setOption(QFileDialog::ShowDirsOnly);
    m_folderDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_folderDialog, &QFileDialog::fileSelected, this,
        [this](const QString& path) { chooseSavePath(path); });
    connect(m_folderDialog, &QObject::destroyed, this, [this] { m_folderSession.reset(); });
    m_folderSession.emplace();
    m_folderDialog->show();
}

void ZRPreferencesView::chooseSavePath(const QString& path)
{
    AppSettings::setScreenshotSavePath(path);
    if (!ZRBookmark::defaultShareBookmark().saveOpenFileToBookmarkWithFilePath(path))
        CommLog::log(QStringLiteral("no permission to keep for the save folder %1"), path);
    showFolder();
    sizeChanged();
}

void ZRPreferencesView::openFolder()
{
    const QString folder = AppSettings::choosedScreenshotSavePath();
    if (!m_workspace.revealFile(folder))
        CommLog::log(QStringLiteral("the save folder %1 cannot be shown"), folder);
    showFolder();
    sizeChanged();
}

void ZRPreferencesView::allowTest()
{
    m_ui->mEndpointTestBtn->setEnabled(!AppSettings::uploadEndpoint().isEmpty());
}

void ZRPreferencesView::testEndpoint()
{
    m_ui->mEndpointTestBtn->setEnabled(false);
    showText(m_ui->mEndpointResultLabel, {});
    sizeChanged();
    m_endpointTest.ask(
        AppSettings::uploadEndpoint(), [this](const QString& failure) { showResult(failure); });
}

void ZRPreferencesView::showResult(const QString& failure)
{
    QLabel* label = m_ui->mEndpointResultLabel;
    label->setProperty("problem", !failure.isEmpty());
    label->style()->unpolish(label); // the look follows the property
    label->style()->polish(label);
    showText(label, failure.isEmpty()
                        ? text(u"Lumora:Upload:TestSucceeded")
                        : text(u"Lumora:Upload:TestFailed").replace(QLatin1String("[#Reason#]"), failure));
    allowTest();
    sizeChanged();
}

void ZRPreferencesView::sizeChanged()
{
    if (onSizeChange)
        onSizeChange();
}
