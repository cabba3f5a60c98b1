// The plain scenario runner: `tarvello-script [--db PATH | --connect TEXT] [--company N] [--demo]
// FILE`. It runs a scenario as the shell's --script does, with the modules the platform registers.
#include "platform/script/scriptrunner.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Runs a Tarvello scenario file headless."));
    parser.addHelpOption();
    const QCommandLineOption database(QStringLiteral("db"), QStringLiteral("SQLite database file."),
                                      QStringLiteral("PATH"));
    const QCommandLineOption connect(QStringLiteral("connect"),
                                     QStringLiteral("ODBC connection string."),
                                     QStringLiteral("TEXT"));
    const QCommandLineOption company(QStringLiteral("company"),
                                     QStringLiteral("The host's current company."),
                                     QStringLiteral("N"));
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Fill an empty database with the demo data."));
    const QCommandLineOption script(QStringLiteral("script"), QStringLiteral("The scenario file."),
                                    QStringLiteral("FILE"));
    parser.addOptions({database, connect, company, demo, script});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The scenario file."));
    parser.process(application);

    QTextStream errors(stderr);
    const QStringList files =
        parser.isSet(script) ? QStringList{parser.value(script)} : parser.positionalArguments();
    if (files.size() != 1) {
        errors << "tarvello-script: give one scenario file" << Qt::endl;
        return 2;
    }
    tarvello::script::ShellOptions options;
    options.databasePath = parser.value(database);
    options.connectionString = parser.value(connect);
    options.demo = parser.isSet(demo);
    if (parser.isSet(company)) {
        bool ok = false;
        options.company = parser.value(company).toInt(&ok);
        if (!ok) {
            errors << "tarvello-script: --company takes a number" << Qt::endl;
            return 2;
        }
    }
    return tarvello::script::runScript(files.first(), options);
}
