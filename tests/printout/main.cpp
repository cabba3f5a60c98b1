#include <QGuiApplication>
#include <gtest/gtest.h>

// Printouts lay text out with fonts, which need a graphical application; the tests run it
// offscreen.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
