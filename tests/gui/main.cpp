#include "platform/gui/italiantranslations.h"
#include "platform/gui/shellapplication.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Views and dialogs need a widget application, the shell's own; the tests run it offscreen,
// with Qt's own texts in Italian as the shell has them. What the windows remember goes to a
// folder of the run's own, never to the user's settings.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    tarvello::gui::ShellApplication app(argc, argv);
    const tarvello::gui::ItalianTranslations italian;
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
