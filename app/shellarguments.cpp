#include "shellarguments.h"

#include <QCommandLineParser>

namespace tarvello::app {

ShellArguments parseShellArguments(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("The host shell of \"Anagrafica agenti\". Without options it opens the "
                       "embedded default database, created with the demo data on first use."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption db(QStringLiteral("db"), QStringLiteral("A SQLite database file."),
                                QStringLiteral("PATH"));
    const QCommandLineOption connect(QStringLiteral("connect"),
                                     QStringLiteral("An ODBC connection string (SQL Server)."),
                                     QStringLiteral("STRING"));
    const QCommandLineOption company(QStringLiteral("company"),
                                     QStringLiteral("The host's current company."),
                                     QStringLiteral("N"));
    const QCommandLineOption script(QStringLiteral("script"),
                                    QStringLiteral("Run a scenario file headless and exit."),
                                    QStringLiteral("FILE"));
    const QCommandLineOption demo(
        QStringLiteral("demo"), QStringLiteral("Put the demo data into a database without rows."));
    QCommandLineOption screenshot(QStringLiteral("screenshot"), QString(), QStringLiteral("FILE"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({db, connect, company, script, demo, screenshot});

    ShellArguments result;
    if (!parser.parse(arguments)) {
        result.error = parser.errorText();
        return result;
    }
    if (parser.isSet(help)) {
        result.help = parser.helpText();
        return result;
    }
    if (!parser.positionalArguments().isEmpty())
        result.error =
            QStringLiteral("Unexpected argument: %1").arg(parser.positionalArguments().first());
    if (parser.isSet(db) && parser.isSet(connect))
        result.error = QStringLiteral("--db and --connect exclude each other");
    if (parser.isSet(company)) {
        bool ok = false;
        const qint32 code = parser.value(company).toInt(&ok);
        if (ok)
            result.company = code;
        else
            result.error =
                QStringLiteral("--company takes a number, not %1").arg(parser.value(company));
    }
    result.databasePath = parser.value(db);
    result.connectionString = parser.value(connect);
    result.scriptFile = parser.value(script);
    result.demo = parser.isSet(demo);
    result.screenshotFile = parser.value(screenshot);
    return result;
}

} // namespace tarvello::app
