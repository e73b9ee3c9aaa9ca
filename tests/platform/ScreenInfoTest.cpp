#include "platform/ScreenInfo.h"

#include <gtest/gtest.h>

TEST(ScreenInfo, DescribesItselfInFixedLines)
{
    const ScreenInfo info(QStringLiteral("DP-1"), {-1920, 34.26, 1920, 1080}, 7, 1.5);
    EXPECT_EQ(info.description(),
        QStringLiteral("\nScreen Info:{\n  ScreenName:DP-1\n  ScreenFrame:(-1920.0,34.3,1920.0,1080.0)\n"
                       "  ScreenScaleFactor:1.5\n}"));
}

TEST(ScreenInfo, ComesBackFromItsArchive)
{
    const ScreenInfo infos[] = {
        {QStringLiteral("DP-1"), {-1920, 0.5, 1920, 1080}, 7, 1.25},
        {QString(), {0, 0, 0, 0}, 0, 2},
    };
    for (const ScreenInfo& info : infos)
        EXPECT_EQ(ScreenInfo::decoded(info.encoded()), info);
    EXPECT_EQ(ScreenInfo::decoded(ScreenInfo().encoded()), ScreenInfo()); // has no frame
}

TEST(ScreenInfo, ArchivesUnderItsFixedKeys)
{
    const QVariantMap archive = ScreenInfo(QStringLiteral("DP-1"), {1, 2, 3, 4}, 7, 1.1).encoded();
    EXPECT_EQ(archive.keys(),
        QStringList({QStringLiteral("tool.screen.displayId"), QStringLiteral("tool.screen.frame"),
            QStringLiteral("tool.screen.scaleFactor"), QStringLiteral("tools.screen.name")}));
    EXPECT_EQ(ScreenInfo::decoded(archive)->GetScaleFactor(), double(1.1f));
}

TEST(ScreenInfo, IsNotMadeFromAnotherRecord)
{
    EXPECT_FALSE(ScreenInfo::decoded({}));
    EXPECT_FALSE(ScreenInfo::decoded({{QStringLiteral("tool.screen.name"), QStringLiteral("DP-1")},
        {QStringLiteral("tool.screen.displayId"), 1}}));
}
