#include "platform/script/arguments.h"
#include "platform/script/command.h"
#include "platform/script/scenario.h"
#include "platform/script/scripterror.h"
#include "platform/services/hostnavigator.h"

#include <QDeadlineTimer>
#include <QThread>
#include <limits>

namespace tarvello::script {

namespace {

using services::HostNavigator;

qint32 int32(qint64 number, const QString& what)
{
    if (number < std::numeric_limits<qint32>::min() || number > std::numeric_limits<qint32>::max())
        throw SyntaxError(QStringLiteral("%1 %2 is out of range").arg(what).arg(number));
    return qint32(number);
}

Action exec(Arguments& args)
{
    const QString sql = args.text(QStringLiteral("the statement"));
    args.end();
    return [sql](Scenario& scenario) { scenario.database().executeNonQuery(sql); };
}

// Another process works on the same database: the run waits until the query returns the
// rows, for at most half a minute.
Action await(Arguments& args)
{
    args.oneOf(QStringLiteral("rows"), {QStringLiteral("rows")});
    const QString query = args.text(QStringLiteral("the query"));
    const qint64 expected = args.integer(QStringLiteral("the number of rows"));
    args.end();
    return [query, expected](Scenario& scenario) {
        constexpr int patience = 30000;
        constexpr int pause = 50;
        const QDeadlineTimer deadline(patience);
        qsizetype rows = 0;
        while ((rows = scenario.database().query(query).rows.size()) != expected) {
            if (deadline.hasExpired())
                throw ScriptFailure(QStringLiteral("after %1 seconds the query still returns "
                                                   "%2 rows")
                                        .arg(patience / 1000)
                                        .arg(rows));
            QThread::msleep(pause);
        }
    };
}

Action company(Arguments& args)
{
    const qint32 code =
        int32(args.integer(QStringLiteral("the company")), QStringLiteral("company"));
    std::optional<bool> divisional;
    if (args.keyword(QStringLiteral("divisional")))
        divisional = args.yesNo(QStringLiteral("divisional"));
    args.end();
    return [code, divisional](Scenario& scenario) { scenario.setCompany(code, divisional); };
}

Action open(Arguments& args)
{
    Scenario::OpenRequest request;
    QStringList given;
    while (!args.atEnd()) {
        const QString option = args.oneOf(QStringLiteral("an option of open"),
                                          {QStringLiteral("modal"), QStringLiteral("called"),
                                           QStringLiteral("mode"), QStringLiteral("caption")});
        if (given.contains(option))
            throw SyntaxError(QStringLiteral("%1 is given twice").arg(option));
        given << option;
        if (option == u"modal") {
            request.modal = true;
        } else if (option == u"called") {
            if (args.oneOf(QStringLiteral("what the module is called on"),
                           {QStringLiteral("code"), QStringLiteral("id")}) == u"code")
                request.calledCode = args.text(QStringLiteral("the agent code"));
            else
                request.calledId = args.integer(QStringLiteral("the agent id"));
        } else if (option == u"mode") {
            request.programMode =
                int32(args.integer(QStringLiteral("the program mode")), QStringLiteral("mode"));
        } else {
            request.caption = args.text(QStringLiteral("the caption"));
        }
    }
    return [request](Scenario& scenario) { scenario.open(request); };
}

Action activate(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) { scenario.activate(); };
}

Action deactivate(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) { scenario.deactivate(); };
}

qint64 toolbarButton(const Token& word)
{
    static constexpr std::pair<const char*, qint32> named[] = {
        {"new", HostNavigator::New},       {"save", HostNavigator::Save},
        {"undo", HostNavigator::Undo},     {"delete", HostNavigator::Delete},
        {"search", HostNavigator::Search},
    };
    if (!word.quoted) {
        for (const auto& [name, number] : named) {
            if (word.text == QLatin1String(name))
                return number;
        }
        if (const std::optional<qint64> number = readInteger(word.text))
            return *number;
    }
    throw SyntaxError(QStringLiteral("the toolbar button must be a number or one of new, save, "
                                     "undo, delete, search, not %1")
                          .arg(untokenize({word})));
}

Action toolbar(Arguments& args)
{
    const qint32 button = int32(toolbarButton(args.token(QStringLiteral("the toolbar button"))),
                                QStringLiteral("toolbar button"));
    args.end();
    return [button](Scenario& scenario) { scenario.pressToolbar(button); };
}

Action close(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) { scenario.close(); };
}

} // namespace

void addHostCommands(CommandTable& table)
{
    table.insert(QStringLiteral("exec"), exec);
    table.insert(QStringLiteral("await"), await);
    table.insert(QStringLiteral("company"), company);
    table.insert(QStringLiteral("open"), open);
    table.insert(QStringLiteral("activate"), activate);
    table.insert(QStringLiteral("deactivate"), deactivate);
    table.insert(QStringLiteral("toolbar"), toolbar);
    table.insert(QStringLiteral("close"), close);
}

} // namespace tarvello::script
