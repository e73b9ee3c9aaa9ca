#pragma once

#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/UserDefaults.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// A fresh settings store and all languages of the program.
class LanguagesTest : public testing::Test {
protected:
    LanguagesTest()
    {
        UserDefaults::setStandardUserDefaults(&m_store);
        LanguageCatalogue::updateLangMenu({QStringLiteral(":/languages")});
    }
    ~LanguagesTest() override { UserDefaults::setStandardUserDefaults(nullptr); }

    // Runs `check` once a language, with that language chosen.
    template <class Check>
    static void inEveryLanguage(Check check)
    {
        EXPECT_EQ(LanguageCatalogue::languages().size(), 19U);
        for (const auto& language : LanguageCatalogue::languages()) {
            SCOPED_TRACE(language.id.toStdString());
            AppSettings::setClientLanguage(language.id);
            check();
        }
    }

private:
    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.path(), QStringLiteral("test"), QStringLiteral("older")};
};
