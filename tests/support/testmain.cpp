#include <QCoreApplication>
#include <gtest/gtest.h>

// Every test executable gets a Qt application object, so models, events and timers work.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
