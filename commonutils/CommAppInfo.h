#pragma once

#include <QString>

// What the program is, in one language: the record that the shared utilities are initialised with. A link is
// empty when none is configured; whoever offers it then hides the offer.
struct CommAppInfo {
    int appID = 0;
    QString appLanguage; // the language's identifier, such as "English"
    QString appType;     // the edition
    QString appVersion;  // as shown to the user
    QString appIcon;     // an image's name
    QString appIdentifier;
    QString appLocalizedName;

    QString homeURL;
    QString supportURL;
    QString FAQURL;
    QString forumURL;
    QString productURL;
    QString videoRecorderURL;
    QString feedbackURL; // of a form, or "mailto:"
    QString updateURL;   // answers as CommUpdate has it
};
