#include "platform/gui/italiantranslations.h"

#include <QApplication>
#include <gtest/gtest.h>

// Views and dialogs need a widget application; the tests run it offscreen, with Qt's own
// texts in Italian as the shell has them.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const tarvello::gui::ItalianTranslations italian;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
