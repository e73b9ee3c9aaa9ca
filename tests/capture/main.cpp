#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("LUMORA_NOTICES", "off"); // they would leave the screen before the next capture, which takes time
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
