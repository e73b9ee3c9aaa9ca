#include "output/UploadRules.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(UploadRules, NameAnUploadAfterItsFile)
{
    struct Case {
        const char *path, *title, *name;
    };
    const Case cases[] = {
        {"/a/Screenshot 1.jpg", "", "Screenshot 1"},
        {"/a/Screenshot 1.jpg", "Mine", "Screenshot 1"},
        {"/a/Screenshot 1.jpg", "Screenshot 1", "Screenshot 1(1)"},
        {"/a/at 10.20.30.jpg", "", "at 10.20.30"},
        {"/a/", "Mine", "Mine"},
        {"/a/", "", "undefineFileName"},
        {"", "", "undefineFileName"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(UploadRules::displayName(QString::fromLatin1(c.path), QString::fromLatin1(c.title)),
            QString::fromLatin1(c.name));
    }
}

TEST(UploadRules, TakeTheLinkOfTheShareTarget)
{
    UploadResult result;
    result.link = QStringLiteral("plain");
    for (const char* name : {"facebook", "google", "twitter", "pinterest"})
        result.share[QString::fromLatin1(name)] = QString::fromLatin1(name);
    const char* const links[] = {"plain", "facebook", "google", "twitter", "pinterest", ""};
    for (unsigned type = 0; type < 6; ++type)
        EXPECT_EQ(UploadRules::linkFor(result, type), QString::fromLatin1(links[type])) << type;
    EXPECT_EQ(UploadRules::linkFor({}, UploadRules::kGoogle), QString());
}

TEST(UploadRules, NeverTakeTheNameOfAFileThatIsThere)
{
    const QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("at 10.20.png"));
    for (const char* name : {"at 10.20.jpg", "at 10.20 (2).jpg", "at 10.20 (3).jpg"}) {
        const QString path = UploadRules::temporaryPath(saved);
        EXPECT_EQ(path, folder.filePath(QString::fromLatin1(name)));
        QFile(path).open(QIODevice::WriteOnly);
    }
}
