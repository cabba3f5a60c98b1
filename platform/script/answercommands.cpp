#include "platform/script/arguments.h"
#include "platform/script/command.h"
#include "platform/script/scenario.h"
#include "platform/script/scripterror.h"
#include "src/host/errorlog.h"

namespace tarvello::script {

namespace {

using services::PromptAnswer;
using services::QuestionAnswer;

PromptAnswer buttonOrQuestion(const QString& word)
{
    static constexpr std::pair<const char*, int> buttons[] = {
        {"yes", host::Yes},       {"no", host::No},       {"ok", host::Ok},
        {"cancel", host::Cancel}, {"abort", host::Abort}, {"retry", host::Retry},
        {"ignore", host::Ignore},
    };
    static constexpr std::pair<const char*, QuestionAnswer> questions[] = {
        {"si", QuestionAnswer::Si},
        {"sempre", QuestionAnswer::Sempre},
        {"mai", QuestionAnswer::Mai}};
    for (const auto& [name, answer] : buttons) {
        if (word == QLatin1String(name))
            return PromptAnswer::button(answer);
    }
    for (const auto& [name, answer] : questions) {
        if (word == QLatin1String(name))
            return PromptAnswer::question(answer);
    }
    throw SyntaxError(QStringLiteral("unknown answer %1").arg(word));
}

PromptAnswer pick(Arguments& args)
{
    const Token chosen = args.token(QStringLiteral("the row or code picked"));
    const std::optional<qint64> row = chosen.quoted ? std::nullopt : readInteger(chosen.text);
    return row ? PromptAnswer::pickRow(int(*row)) : PromptAnswer::pickCode(chosen.text);
}

PromptAnswer customers(Arguments& args)
{
    const QList<Token> words = args.rest();
    if (words.isEmpty() || words.size() % 2 != 0)
        throw SyntaxError(QStringLiteral("customers takes pairs of a customer and a destination "
                                         "(\"\" for none)"));
    QList<services::CustomerChoice> chosen;
    for (qsizetype i = 0; i < words.size(); i += 2)
        chosen.append({words.at(i).text, words.at(i + 1).text});
    return PromptAnswer::customers(chosen);
}

PromptAnswer codes(Arguments& args)
{
    QStringList chosen;
    for (const Token& word : args.rest())
        chosen << word.text;
    if (chosen.isEmpty())
        throw SyntaxError(QStringLiteral("codes takes at least one code"));
    return PromptAnswer::codes(chosen);
}

PromptAnswer transfer(Arguments& args)
{
    const Token handed = args.token(QStringLiteral("the value handed back"));
    const std::optional<qint64> number = handed.quoted ? std::nullopt : readInteger(handed.text);
    return PromptAnswer::transfer(number ? db::Value(*number) : db::Value(handed.text));
}

Action answer(Arguments& args)
{
    const QString kind = args.text(QStringLiteral("the answer"));
    PromptAnswer given = PromptAnswer::nothing();
    if (kind == u"pick")
        given = pick(args);
    else if (kind == u"none")
        given = PromptAnswer::nothing();
    else if (kind == u"agent")
        given = PromptAnswer::agent(args.text(QStringLiteral("the agent code")));
    else if (kind == u"registry")
        given = PromptAnswer::registry(args.integer(QStringLiteral("the registry code")));
    else if (kind == u"route")
        given = PromptAnswer::route(args.text(QStringLiteral("the route code")));
    else if (kind == u"customers")
        given = customers(args);
    else if (kind == u"codes")
        given = codes(args);
    else if (kind == u"transfer")
        given = transfer(args);
    else if (kind == u"window")
        given = PromptAnswer::window();
    else if (kind == u"file")
        given = PromptAnswer::file(args.text(QStringLiteral("the file's path")));
    else
        given = buttonOrQuestion(kind);
    args.end();
    return [given](Scenario& scenario) { scenario.prompts().queue(given); };
}

} // namespace

void addAnswerCommands(CommandTable& table)
{
    table.insert(QStringLiteral("answer"), answer);
}

} // namespace tarvello::script
