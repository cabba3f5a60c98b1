#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigator.h"
#include "platform/controls/tabstrip.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/script/arguments.h"
#include "platform/script/command.h"
#include "platform/script/scenario.h"
#include "platform/script/scenariowindow.h"
#include "platform/script/screentexts.h"
#include "platform/script/scripterror.h"
#include "platform/services/hostcontext.h"
#include "src/host/cinterface.h"

namespace tarvello::script {

namespace {

using namespace controls;

[[noreturn]] void found(const QString& what)
{
    throw ScriptFailure(QStringLiteral("found %1").arg(what));
}

void expectEqual(const QString& actual, const QString& expected)
{
    if (actual != expected)
        found(quotedText(actual));
}

void expectNumber(qint64 actual, qint64 expected, const QString& what)
{
    if (actual != expected)
        found(QStringLiteral("%1 %2").arg(actual).arg(what));
}

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString describePrompt(const services::PromptRecord& prompt)
{
    return QStringLiteral("%1 %2 (title %3, style %4)")
        .arg(services::promptKindName(prompt.kind), quotedText(prompt.text),
             quotedText(prompt.title))
        .arg(prompt.style);
}

// What was shown or sent since the last match, one per line, for a message.
QString since(const QStringList& items, const QString& nothing)
{
    if (items.isEmpty())
        return nothing;
    return QStringLiteral("only:\n        ") + items.join(QStringLiteral("\n        "));
}

QStringList promptsSince(Scenario& scenario)
{
    QStringList shown;
    const QList<services::PromptRecord>& history = scenario.prompts().history();
    for (qsizetype i = scenario.promptsMatched(); i < history.size(); ++i)
        shown << describePrompt(history.at(i));
    return shown;
}

Grid& agentsTree(Scenario& scenario)
{
    return scenario.window().control<Grid>(QStringLiteral("GRD_AGENTI"));
}

// The control named, and the check done on it, for the checks of a setting (enabled,
// visible, valid, required) that a navigator's button and a menu item have too.
Action setting(Arguments& args, const QString& name)
{
    const QString control = args.text(QStringLiteral("the control"));
    QString part;
    const Token* next = args.peek();
    if (next && (next->quoted || (next->text != u"yes" && next->text != u"no")))
        part = args.text(QStringLiteral("the button or item"));
    const bool expected = args.yesNo(QStringLiteral("the setting"));
    args.end();
    if (!part.isEmpty() && name != u"enabled" && name != u"visible")
        throw SyntaxError(
            QStringLiteral("only enabled and visible are checked on a button or item"));
    return [=](Scenario& scenario) {
        Control& target = scenario.window().control(control);
        bool actual = false;
        if (!part.isEmpty()) {
            if (const auto* navigator = qobject_cast<Navigator*>(&target)) {
                const Navigator::Button* button = navigator->button(part);
                if (!button)
                    throw ScriptFailure(QStringLiteral("%1 has no button %2").arg(control, part));
                actual = name == u"enabled" ? navigator->isButtonEnabled(part) : button->visible;
            } else if (const auto* menu = qobject_cast<MenuButton*>(&target)) {
                const MenuButton::Item* item = menu->item(part);
                if (!item)
                    throw ScriptFailure(QStringLiteral("%1 has no item %2").arg(control, part));
                actual = name == u"enabled" ? item->enabled : item->visible;
            } else {
                throw ScriptFailure(
                    QStringLiteral("%1 has neither buttons nor items").arg(control));
            }
        } else if (name == u"enabled") {
            actual = target.isEnabled();
        } else if (name == u"visible") {
            actual = target.isVisible();
        } else {
            const DataControl& data = scenario.window().control<DataControl>(control);
            actual = name == u"valid" ? data.isValid() : data.isRequired();
        }
        if (actual != expected)
            found(QStringLiteral("%1 %2").arg(name, yesNo(actual)));
    };
}

Action text(Arguments& args)
{
    const QString control = args.text(QStringLiteral("the control"));
    const QString expected = args.text(QStringLiteral("the text"));
    args.end();
    return [control, expected](Scenario& scenario) {
        expectEqual(shownText(scenario.window().control(control)), expected);
    };
}

Action value(Arguments& args)
{
    const QString control = args.text(QStringLiteral("the list"));
    const QString expected = args.text(QStringLiteral("the code"));
    args.end();
    return [control, expected](Scenario& scenario) {
        Control& target = scenario.window().control(control);
        if (const auto* list = qobject_cast<ComboBox*>(&target))
            expectEqual(list->text(), expected);
        else if (const auto* box = qobject_cast<CheckBox*>(&target))
            expectEqual(QString::number(box->checkState()), expected);
        else
            throw ScriptFailure(
                QStringLiteral("%1 is a %2: only lists and check boxes have a value")
                    .arg(control, kindName(*target.metaObject())));
    };
}

Action items(Arguments& args)
{
    const QString control = args.text(QStringLiteral("the list"));
    QStringList expected;
    for (const Token& code : args.rest())
        expected << code.text;
    return [control, expected](Scenario& scenario) {
        Control& target = scenario.window().control(control);
        QStringList actual;
        if (const auto* list = qobject_cast<ComboBox*>(&target))
            actual = itemCodes(*list);
        else if (const auto* menu = qobject_cast<MenuButton*>(&target))
            actual = menuKeys(*menu, true);
        else
            throw ScriptFailure(QStringLiteral("%1 is a %2: only lists and menu buttons have items")
                                    .arg(control, kindName(*target.metaObject())));
        if (actual != expected)
            found(listed(actual));
    };
}

Action focus(Arguments& args)
{
    const QString control = args.text(QStringLiteral("the control"));
    args.end();
    return [control](Scenario& scenario) {
        scenario.window().control(control);
        const Control* current = scenario.window().openForm().activeControl();
        if (!current)
            found(QStringLiteral("no control with the focus"));
        if (current->name() != control)
            found(QStringLiteral("the focus on %1").arg(current->name()));
    };
}

Action status(Arguments& args)
{
    const QString frame = args.text(QStringLiteral("the record frame"));
    const qint64 expected = args.integer(QStringLiteral("the status"));
    args.end();
    return [frame, expected](Scenario& scenario) {
        const int actual = int(scenario.window().frame(frame).status());
        if (actual != expected)
            found(QStringLiteral("status %1").arg(actual));
    };
}

Action tab(Arguments& args)
{
    const qint64 expected = args.integer(QStringLiteral("the page"));
    args.end();
    return [expected](Scenario& scenario) {
        const int actual =
            scenario.window().control<TabStrip>(QStringLiteral("TAB_AGENTI")).currentPage();
        if (actual != expected)
            found(QStringLiteral("page %1 selected").arg(actual));
    };
}

Action prompt(Arguments& args)
{
    const QString expected = args.text(QStringLiteral("the prompt's text"));
    std::optional<QString> title;
    std::optional<qint64> style;
    while (!args.atEnd()) {
        if (args.oneOf(QStringLiteral("title or style"),
                       {QStringLiteral("title"), QStringLiteral("style")}) == u"title")
            title = args.text(QStringLiteral("the title"));
        else
            style = args.integer(QStringLiteral("the style"));
    }
    return [=](Scenario& scenario) {
        const QList<services::PromptRecord>& history = scenario.prompts().history();
        for (qsizetype i = scenario.promptsMatched(); i < history.size(); ++i) {
            const services::PromptRecord& shown = history.at(i);
            if ((expected == u"*" || shown.text == expected) && (!title || shown.title == *title) &&
                (!style || shown.style == *style)) {
                scenario.setPromptsMatched(i + 1);
                return;
            }
        }
        found(since(promptsSince(scenario), QStringLiteral("no prompt")));
    };
}

Action noPrompt(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) {
        const QStringList shown = promptsSince(scenario);
        if (!shown.isEmpty())
            found(shown.join(QStringLiteral("\n        ")));
    };
}

Action sql(Arguments& args)
{
    const QString expected = args.text(QStringLiteral("the statement"));
    args.end();
    return [expected](Scenario& scenario) {
        ScenarioWindow& window = scenario.window();
        const QList<db::StatementLog::Entry>& sent = window.connection().log().entries();
        QStringList others;
        for (qsizetype i = window.statementsMatched(); i < sent.size(); ++i) {
            if (sent.at(i).text == expected) {
                window.setStatementsMatched(i + 1);
                return;
            }
            others << quotedText(sent.at(i).text);
        }
        found(since(others, QStringLiteral("no statement")));
    };
}

Action rows(Arguments& args)
{
    const QString query = args.text(QStringLiteral("the query"));
    const qint64 expected = args.integer(QStringLiteral("the number of rows"));
    args.end();
    return [query, expected](Scenario& scenario) {
        expectNumber(scenario.database().query(query).rows.size(), expected,
                     QStringLiteral("rows"));
    };
}

Action cell(Arguments& args)
{
    const QString query = args.text(QStringLiteral("the query"));
    const QString expected = args.text(QStringLiteral("the value"));
    args.end();
    return [query, expected](Scenario& scenario) {
        const db::ResultSet result = scenario.database().query(query);
        if (result.rows.isEmpty() || result.rows.first().isEmpty())
            found(QStringLiteral("no rows"));
        expectEqual(valueText(result.rows.first().first()), expected);
    };
}

Action grid(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the grid"));
    if (args.oneOf(QStringLiteral("rows or row"),
                   {QStringLiteral("rows"), QStringLiteral("row")}) == u"rows") {
        const qint64 expected = args.integer(QStringLiteral("the number of rows"));
        args.end();
        return [name, expected](Scenario& scenario) {
            expectNumber(scenario.window().control<Grid>(name).rowCount(), expected,
                         QStringLiteral("rows"));
        };
    }
    const qint64 row = args.integer(QStringLiteral("the row"));
    const QString column = args.text(QStringLiteral("the column"));
    const QString expected = args.text(QStringLiteral("the text"));
    args.end();
    return [=](Scenario& scenario) {
        Grid& grid = scenario.window().control<Grid>(name);
        if (row < 1 || row > grid.rowCount())
            throw ScriptFailure(QStringLiteral("%1 has no row %2: it shows %3 rows")
                                    .arg(name)
                                    .arg(row)
                                    .arg(grid.rowCount()));
        const int index = grid.columnIndex(column);
        if (index < 0)
            throw ScriptFailure(QStringLiteral("%1 has no column %2").arg(name, column));
        expectEqual(grid.cellText(int(row - 1), index), expected);
    };
}

Action tree(Arguments& args)
{
    if (args.oneOf(QStringLiteral("current or rows"),
                   {QStringLiteral("current"), QStringLiteral("rows")}) == u"rows") {
        const qint64 expected = args.integer(QStringLiteral("the number of rows"));
        args.end();
        return [expected](Scenario& scenario) {
            expectNumber(agentsTree(scenario).rowCount(), expected, QStringLiteral("rows"));
        };
    }
    const QString expected = args.text(QStringLiteral("the agent code"));
    args.end();
    return [expected](Scenario& scenario) {
        const Grid& tree = agentsTree(scenario);
        if (tree.selectedRow() < 0) {
            // The tree's recordset stands before its first or after its last row.
            if (expected.isEmpty())
                return;
            found(QStringLiteral("no current agent"));
        }
        expectEqual(agentOfRow(tree, tree.selectedRow()), expected);
    };
}

Action transfer(Arguments& args)
{
    const QString expected = args.text(QStringLiteral("the value"));
    args.end();
    return [expected](Scenario& scenario) {
        const std::optional<db::Value>& handed = scenario.window().lastTransfer();
        if (!handed)
            found(QStringLiteral("nothing handed back"));
        expectEqual(valueText(*handed), expected);
    };
}

Action open(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) {
        if (!scenario.window().isOpen())
            found(QStringLiteral("the window closed"));
    };
}

Action closed(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) {
        if (scenario.window().isOpen())
            found(QStringLiteral("the window open"));
    };
}

Action active(Arguments& args)
{
    const bool expected = args.yesNo(QStringLiteral("whether the module is active"));
    args.end();
    return [expected](Scenario& scenario) {
        const bool actual = scenario.window().module().IsActive();
        if (actual != expected)
            found(QStringLiteral("IsActive %1").arg(yesNo(actual)));
    };
}

Action company(Arguments& args)
{
    const qint64 expected = args.integer(QStringLiteral("the company"));
    args.end();
    return [expected](Scenario& scenario) {
        const qint32 actual = scenario.host().company().code;
        if (actual != expected)
            found(QStringLiteral("company %1").arg(actual));
    };
}

Action enabled(Arguments& args)
{
    return setting(args, QStringLiteral("enabled"));
}

Action visible(Arguments& args)
{
    return setting(args, QStringLiteral("visible"));
}

Action valid(Arguments& args)
{
    return setting(args, QStringLiteral("valid"));
}

Action required(Arguments& args)
{
    return setting(args, QStringLiteral("required"));
}

CommandTable checks()
{
    return {
        {QStringLiteral("text"), text},         {QStringLiteral("value"), value},
        {QStringLiteral("items"), items},       {QStringLiteral("enabled"), enabled},
        {QStringLiteral("visible"), visible},   {QStringLiteral("valid"), valid},
        {QStringLiteral("required"), required}, {QStringLiteral("focus"), focus},
        {QStringLiteral("status"), status},     {QStringLiteral("tab"), tab},
        {QStringLiteral("prompt"), prompt},     {QStringLiteral("noprompt"), noPrompt},
        {QStringLiteral("sql"), sql},           {QStringLiteral("rows"), rows},
        {QStringLiteral("cell"), cell},         {QStringLiteral("grid"), grid},
        {QStringLiteral("tree"), tree},         {QStringLiteral("transfer"), transfer},
        {QStringLiteral("open"), open},         {QStringLiteral("closed"), closed},
        {QStringLiteral("active"), active},     {QStringLiteral("company"), company},
    };
}

Action expect(Arguments& args)
{
    const CommandTable table = checks();
    QStringList names = table.keys();
    names.sort();
    return table.value(args.oneOf(QStringLiteral("the check"), names))(args);
}

} // namespace

void addCheckCommands(CommandTable& table)
{
    table.insert(QStringLiteral("expect"), expect);
}

} // namespace tarvello::script
