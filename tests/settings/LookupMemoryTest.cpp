#include "settings/AppSettings.h"
#include "settings/LanguageCatalogue.h"
#include "settings/ZRParserManager.h"
#include "tests/settings/SettingsFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>

#ifndef __SANITIZE_ADDRESS__ // whose own malloc is the one to be used

namespace {

std::atomic<int> s_allocations = 0;

}

// Stands in front of the C library's, for the whole test program.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* malloc(std::size_t size)
{
    ++s_allocations;
    return __libc_malloc(size);
}

TEST(TextLookup, AllocatesNothing)
{
    const SettingsFolder folder;
    UserDefaults store(folder.path(), AppSettings::AppBundleId(), AppSettings::AppOldBundleId());
    UserDefaults::setStandardUserDefaults(&store);
    LanguageCatalogue::updateLangMenu({LanguageCatalogue::folders().last()});
    AppSettings::setClientLanguage(QStringLiteral("Greek"));
    AppSettings::getXMLValueForKeywords(u"Comm:Nowhere"); // logged here
    for (const QStringView key :
        {u"LangName", u"Comm:About", u"Options:General:AutoStart", u"Comm:Nowhere"}) {
        SCOPED_TRACE(key.toString().toStdString());
        const int before = s_allocations;
        const QString text = AppSettings::getXMLValueForKeywords(key);
        EXPECT_EQ(s_allocations - before, 0);
        EXPECT_EQ(text.isNull(), key == QStringView(u"Comm:Nowhere"));
    }
    ZRParserManager::clearCache();
}

#endif
