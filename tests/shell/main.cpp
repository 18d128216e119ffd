#include <gtest/gtest.h>

#include <QApplication>

// The tests draw where nobody sees it; nothing but the events that a test sends reaches the windows.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
