#include "platform/script/command.h"

#include "platform/script/arguments.h"
#include "platform/script/scripterror.h"

namespace tarvello::script {

CommandTable scenarioCommands()
{
    CommandTable table;
    addHostCommands(table);
    addPersonCommands(table);
    addAnswerCommands(table);
    addCheckCommands(table);
    return table;
}

Command compileCommand(const CommandTable& table, const QList<Token>& words)
{
    const Token& name = words.first();
    const CommandParser parser = name.quoted ? nullptr : table.value(name.text);
    if (!parser)
        throw SyntaxError(QStringLiteral("unknown command %1").arg(untokenize({name})));
    Arguments arguments(words.mid(1));
    Command command;
    command.run = parser(arguments);
    command.mayWait = name.text == u"open";
    return command;
}

} // namespace tarvello::script
