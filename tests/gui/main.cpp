#include "platform/gui/shellapplication.h"

#include <gtest/gtest.h>

// Views and dialogs need a widget application, the shell's own; the tests run it offscreen.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    tarvello::gui::ShellApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
