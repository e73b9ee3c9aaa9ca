#pragma once

#include <QString>

class QLocale;

// The interface language that a language or country code stands for, in any case of its letters; empty when
// none does. Kept: "nl" stands for Norwegian too, and Dutch, the first, answers.
QString languageNameFromCode(const QString& code);
// The interface language that is spoken where the locale is; empty when none is.
QString languageNameOfLocale(const QLocale& locale);
