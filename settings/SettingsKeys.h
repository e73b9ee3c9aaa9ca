#pragma once

#include <QString>

// The keys of the settings file. Kept: they lie on users' disks in these spellings.
namespace SettingsKeys {

inline const QString kRegionHotKey = QStringLiteral("hotkeyRegionScreenShot");
inline const QString kFullScreenHotKey = QStringLiteral("hotkeyFullScreenShot");
inline const QString kShowStartWindow = QStringLiteral("applicationIsNeedShowStartWindow");
inline const QString kWindowRecognize = QStringLiteral("useWindowRecognize");
inline const QString kScreenshotType = QStringLiteral("screenshotType");
inline const QString kSavePath = QStringLiteral("screenshotSavePath");
inline const QString kShowUploadView = QStringLiteral("needShowUplopadToCloundView");
inline const QString kOpenLink = QStringLiteral("openScreenshotLinkAfterUpload");
inline const QString kClientLanguage = QStringLiteral("clientLang");
inline const QString kChannelProvider = QStringLiteral("ChannelProviderID");
inline const QString kMosaicMode = QStringLiteral("saveMosicModel");
inline const QString kMosaicSecure = QStringLiteral("mosaicIsSecure");
inline const QString kKeepLastCapture = QStringLiteral("lastCaptureIsKept");
inline const QString kLastRegion = QStringLiteral("lastRegion");
inline const QString kUploadEndpoint = QStringLiteral("uploadEndpoint");
inline const QString kLanguageMenu = QStringLiteral("LangMenu");
inline const QString kAutoLaunch = QStringLiteral("applicationAutoLaunch");
inline const QString kImageQuality = QStringLiteral("userNeedImageQuality");
inline const QString kCurrentScreen = QStringLiteral("screenshot.userdefault.screeninfo");
inline const QString kFirstScreen = QStringLiteral("screenshot.userdefault.fistscreeninfo");
inline const QString kToolTipDelay = QStringLiteral("NSInitialToolTipDelay"); // milliseconds
inline const QString kLastPicks = QStringLiteral("colorWindowLastPicks");

// Links to web pages; an absent or empty one is not offered.
inline const QString kHomeLink = QStringLiteral("linkHome");
inline const QString kSupportLink = QStringLiteral("linkSupport");
inline const QString kFAQLink = QStringLiteral("linkFAQ");
inline const QString kForumLink = QStringLiteral("linkForum");
inline const QString kProductLink = QStringLiteral("linkProduct");
inline const QString kVideoRecorderLink = QStringLiteral("linkVideoRecorder");
inline const QString kFeedbackLink = QStringLiteral("linkFeedback");
inline const QString kUpdateLink = QStringLiteral("linkUpdate");

}
