#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
