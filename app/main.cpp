#include "app/databasesetup.h"
#include "app/shellarguments.h"
#include "app/shellassembly.h"
#include "platform/db/runtimeerror.h"
#include "platform/gui/dialogprompts.h"
#include "platform/gui/italiantranslations.h"
#include "platform/gui/managementdialogs.h"
#include "platform/gui/shellapplication.h"
#include "platform/gui/shellhost.h"
#include "platform/gui/shellwindow.h"
#include "platform/script/promptlookups.h"
#include "platform/script/scriptrunner.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>

namespace {

using namespace tarvello;

int runScenario(const app::ShellArguments& arguments, int argc, char** argv)
{
    // Printouts lay text out with fonts, which need a graphical application; a run opens no
    // window, so it needs no window system either.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    script::ShellOptions options;
    options.databasePath = arguments.databasePath;
    options.connectionString = arguments.connectionString;
    options.company = arguments.company;
    options.demo = arguments.demo;
    options.registerModules = app::registerModules;
    return script::runScript(arguments.scriptFile, options);
}

// Opens the agents module, waits for the window to be drawn, saves its picture and quits.
void takeScreenshot(gui::ShellWindow& window, const gui::ShellWindow::ModuleEntry& entry,
                    const QString& file)
{
    QTimer::singleShot(0, &window, [&window, entry, file] {
        window.openModule(entry);
        QTimer::singleShot(500, &window, [&window, file] {
            const bool saved = window.grab().save(file);
            if (!saved)
                std::fprintf(stderr, "Cannot write %s\n", qPrintable(file));
            QCoreApplication::exit(saved ? 0 : 1);
        });
    });
}

} // namespace

int main(int argc, char** argv)
{
    QStringList commandLine;
    for (int i = 0; i < argc; ++i)
        commandLine << QString::fromLocal8Bit(argv[i]);
    const app::ShellArguments arguments = app::parseShellArguments(commandLine);
    if (!arguments.help.isEmpty()) {
        std::fputs(qPrintable(arguments.help), stdout);
        return 0;
    }
    if (!arguments.error.isEmpty()) {
        std::fprintf(stderr, "tarvello: %s (see --help)\n", qPrintable(arguments.error));
        return 2;
    }
    if (!arguments.scriptFile.isEmpty())
        return runScenario(arguments, argc, argv);

    gui::ShellApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tarvello"));
    QApplication::setOrganizationName(QStringLiteral("Tarvello"));
    const gui::ItalianTranslations italian;
    gui::DialogPrompts prompts;
    std::unique_ptr<gui::ShellHost> host;
    try {
        host = std::make_unique<gui::ShellHost>(prompts, app::prepareDatabase(arguments),
                                                arguments.company);
    } catch (const db::RuntimeError& error) {
        QMessageBox::critical(
            nullptr, QStringLiteral("Tarvello"),
            QStringLiteral("Il database non si apre:\n%1").arg(error.description()));
        return 1;
    }
    app::registerModules(host->context());
    script::PromptLookups lookups(prompts);
    gui::ShellWindow window(*host, &lookups);
    prompts.setParent(&window);
    application.setPrompts(&prompts);
    gui::ManagementDialogs managements(host->navigator(), prompts, &window);
    host->context().managements().setPresenter(&managements);
    app::assembleShell(window);
    window.show();
    if (!arguments.screenshotFile.isEmpty())
        takeScreenshot(window, app::agentsEntry(), arguments.screenshotFile);
    const int result = QApplication::exec();
    application.setPrompts(nullptr);
    return result;
}
