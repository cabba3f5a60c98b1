#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace tarvello::app {

// The shell's command line.
struct ShellArguments {
    QString databasePath;          // --db PATH
    QString connectionString;      // --connect "DRIVER=..."
    std::optional<qint32> company; // --company N
    QString scriptFile;            // --script FILE
    bool demo = false;             // --demo
    QString screenshotFile;        // --screenshot FILE (hidden): grab the window once shown, exit
    // Why the command line could not be read; empty when it could.
    QString error;
    // --help was asked for: the usage text.
    QString help;
};

ShellArguments parseShellArguments(const QStringList& arguments);

} // namespace tarvello::app
