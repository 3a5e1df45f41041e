#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // whatever screen there is: the tests type and click by themselves
    testing::InitGoogleTest(&argc, argv);
    const QApplication programa(argc, argv);
    return RUN_ALL_TESTS();
}
