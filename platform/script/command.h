#pragma once

#include "platform/script/tokenizer.h"

#include <QHash>
#include <QList>
#include <QString>
#include <functional>

namespace tarvello::script {

class Arguments;
class Scenario;

using Action = std::function<void(Scenario&)>;
// Reads a command's words after its name and returns what it does; raises SyntaxError.
using CommandParser = Action (*)(Arguments&);
using CommandTable = QHash<QString, CommandParser>;

// A line of a scenario, understood.
struct Command {
    int line = 0;
    Action run;
    // The command may return only once a screen it opened has closed (a modal `open`): the
    // commands after it run while it waits.
    bool mayWait = false;
};

// Every command of the scenario language, by name.
CommandTable scenarioCommands();
// Understands the words of a line (not empty); raises SyntaxError.
Command compileCommand(const CommandTable& table, const QList<Token>& words);

// The groups of commands.
void addHostCommands(CommandTable& table);
void addPersonCommands(CommandTable& table);
void addAnswerCommands(CommandTable& table);
void addCheckCommands(CommandTable& table);

} // namespace tarvello::script
