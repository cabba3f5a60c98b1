#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigator.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/script/arguments.h"
#include "platform/script/command.h"
#include "platform/script/scenario.h"
#include "platform/script/scenariowindow.h"
#include "platform/script/screentexts.h"
#include "platform/script/scripterror.h"

namespace tarvello::script {

namespace {

using namespace controls;

QString whyUnusable(const Control& control)
{
    if (!control.isEnabled())
        return QStringLiteral("it is disabled");
    if (!control.isVisible())
        return QStringLiteral("it is hidden");
    return QStringLiteral("it cannot hold the focus");
}

// A person reaching for a control: the focus moves there first, and the control losing it
// may keep it. What a person cannot do does nothing, with a note.
bool reach(const Scenario& scenario, Control& control)
{
    if (!control.canReceiveFocus()) {
        scenario.note(QStringLiteral("%1 cannot be used, %2: nothing happens")
                          .arg(control.name(), whyUnusable(control)));
        return false;
    }
    if (control.setFocus())
        return true;
    const Control* kept = control.form() ? control.form()->activeControl() : nullptr;
    scenario.note(QStringLiteral("the focus stayed on %1: %2 was not reached")
                      .arg(kept ? kept->name() : QStringLiteral("no control"), control.name()));
    return false;
}

// Touching a control that takes no focus: it must be usable.
bool usable(const Scenario& scenario, const Control& control)
{
    if (control.isEnabled() && control.isVisible())
        return true;
    scenario.note(QStringLiteral("%1 cannot be used, %2: nothing happens")
                      .arg(control.name(), whyUnusable(control)));
    return false;
}

int keyCode(const Token& word)
{
    static constexpr std::pair<const char*, int> named[] = {
        {"Enter", Key::Enter}, {"Tab", Key::Tab}, {"Esc", Key::Escape}};
    for (const auto& [name, code] : named) {
        if (word.text == QLatin1String(name))
            return code;
    }
    if (word.text.startsWith(u'F')) {
        const std::optional<qint64> number = readInteger(word.text.mid(1));
        if (number && *number >= 1 && *number <= Key::F12 - Key::F1 + 1)
            return int(Key::F1 + *number - 1);
    }
    if (const std::optional<qint64> code = readInteger(word.text); code && *code > 0 && *code < 256)
        return int(*code);
    throw SyntaxError(
        QStringLiteral("the key must be Enter, Tab, Esc, F1 to F12 or a key code, not %1")
            .arg(untokenize({word})));
}

Action focus(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the control"));
    args.end();
    return [name](Scenario& scenario) { reach(scenario, scenario.window().control(name)); };
}

Action type(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the field"));
    const QString typed = args.text(QStringLiteral("the text typed"));
    args.end();
    return [name, typed](Scenario& scenario) {
        Field& field = scenario.window().control<Field>(name);
        if (reach(scenario, field))
            field.typeText(typed);
    };
}

Action select(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the list"));
    const QString code = args.text(QStringLiteral("the code"));
    args.end();
    return [name, code](Scenario& scenario) {
        ComboBox& list = scenario.window().control<ComboBox>(name);
        const int index = int(itemCodes(list).indexOf(code));
        if (index < 0)
            throw ScriptFailure(QStringLiteral("%1 has no item with the code %2; its codes are %3")
                                    .arg(name, quotedText(code), listed(itemCodes(list))));
        if (reach(scenario, list))
            list.choose(index);
    };
}

Action check(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the check box"));
    const int state = int(args.oneOf(QStringLiteral("the state"),
                                     {QStringLiteral("0"), QStringLiteral("1")}) == u"1");
    args.end();
    return [name, state](Scenario& scenario) {
        CheckBox& box = scenario.window().control<CheckBox>(name);
        if (reach(scenario, box))
            box.check(state);
    };
}

Action leave(Arguments& args)
{
    args.end();
    return [](Scenario& scenario) {
        Form& form = scenario.window().openForm();
        if (form.focus().leave())
            return;
        const Control* kept = form.activeControl();
        scenario.note(kept ? QStringLiteral("the focus stayed on %1").arg(kept->name())
                           : QStringLiteral("no control can take the focus"));
    };
}

Action key(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the control"));
    const int code = keyCode(args.token(QStringLiteral("the key")));
    int shift = 0;
    while (!args.atEnd()) {
        const QString modifier =
            args.oneOf(QStringLiteral("a modifier"),
                       {QStringLiteral("shift"), QStringLiteral("ctrl"), QStringLiteral("alt")});
        shift |= modifier == u"shift"  ? KeyModifier::Shift
                 : modifier == u"ctrl" ? KeyModifier::Ctrl
                                       : KeyModifier::Alt;
    }
    return [name, code, shift](Scenario& scenario) {
        Control& control = scenario.window().control(name);
        if (reach(scenario, control))
            control.pressKey(code, shift);
    };
}

// What follows the control's name in `click`: nothing, a row, an agent, or one word (a
// navigator button's key, a menu item's key, a tab page).
struct ClickTarget {
    enum class Kind { Control, Row, Agent, Word } kind = Kind::Control;
    QString text;
    qint64 row = 0;
};

ClickTarget clickTarget(Arguments& args)
{
    ClickTarget target;
    if (args.atEnd())
        return target;
    if (args.keyword(QStringLiteral("row"))) {
        target.kind = ClickTarget::Kind::Row;
        target.row = args.integer(QStringLiteral("the row"));
    } else if (args.keyword(QStringLiteral("agent"))) {
        target.kind = ClickTarget::Kind::Agent;
        target.text = args.text(QStringLiteral("the agent code"));
    } else {
        target.kind = ClickTarget::Kind::Word;
        target.text = args.text(QStringLiteral("what is clicked"));
    }
    args.end();
    return target;
}

[[noreturn]] void cannotClick(const Control& control, const ClickTarget& target)
{
    const QString what =
        target.kind == ClickTarget::Kind::Control ? QString() : QStringLiteral(" that way");
    throw ScriptFailure(QStringLiteral("%1 (a %2) cannot be clicked%3")
                            .arg(control.name(), kindName(*control.metaObject()), what));
}

void clickGrid(const Scenario& scenario, Grid& grid, const ClickTarget& target)
{
    int row = -1;
    if (target.kind == ClickTarget::Kind::Row) {
        if (target.row < 1 || target.row > grid.rowCount())
            throw ScriptFailure(QStringLiteral("%1 has no row %2: it shows %3 rows")
                                    .arg(grid.name())
                                    .arg(target.row)
                                    .arg(grid.rowCount()));
        row = int(target.row - 1);
    } else if (target.kind == ClickTarget::Kind::Agent) {
        row = agentRow(grid, target.text);
        if (row < 0)
            throw ScriptFailure(
                QStringLiteral("%1 shows no agent %2").arg(grid.name(), quotedText(target.text)));
    } else {
        cannotClick(grid, target);
    }
    if (reach(scenario, grid))
        grid.clickRow(row);
}

void clickNavigator(const Scenario& scenario, Navigator& navigator, const ClickTarget& target)
{
    if (target.kind != ClickTarget::Kind::Word)
        cannotClick(navigator, target);
    if (!navigator.button(target.text))
        throw ScriptFailure(
            QStringLiteral("%1 has no button %2; its buttons are %3")
                .arg(navigator.name(), quotedText(target.text), listed(buttonKeys(navigator))));
    if (!usable(scenario, navigator))
        return;
    if (!navigator.isAvailable(target.text)) {
        scenario.note(QStringLiteral("the button %1 of %2 is not available: nothing happens")
                          .arg(target.text, navigator.name()));
        return;
    }
    navigator.press(target.text);
}

void clickMenuButton(const Scenario& scenario, MenuButton& menu, const ClickTarget& target)
{
    if (target.kind != ClickTarget::Kind::Word)
        cannotClick(menu, target);
    if (!menu.item(target.text))
        throw ScriptFailure(
            QStringLiteral("%1 has no item %2; its items are %3")
                .arg(menu.name(), quotedText(target.text), listed(menuKeys(menu, false))));
    if (reach(scenario, menu) && !menu.clickItem(target.text))
        scenario.note(QStringLiteral("the item %1 of %2 cannot be chosen: nothing happens")
                          .arg(target.text, menu.name()));
}

void clickTab(const Scenario& scenario, TabStrip& tabs, const ClickTarget& target)
{
    const std::optional<qint64> page =
        target.kind == ClickTarget::Kind::Word ? readInteger(target.text) : std::nullopt;
    if (!page)
        cannotClick(tabs, target);
    if (*page < 0 || *page >= tabs.pageCount())
        throw ScriptFailure(QStringLiteral("%1 has no page %2: its pages are 0 to %3")
                                .arg(tabs.name())
                                .arg(*page)
                                .arg(tabs.pageCount() - 1));
    if (reach(scenario, tabs) && !tabs.selectPage(int(*page)))
        scenario.note(
            QStringLiteral("the change to page %1 of %2 was refused").arg(*page).arg(tabs.name()));
}

void click(const Scenario& scenario, Control& control, const ClickTarget& target)
{
    const bool plain = target.kind == ClickTarget::Kind::Control;
    if (auto* grid = qobject_cast<Grid*>(&control))
        clickGrid(scenario, *grid, target);
    else if (auto* navigator = qobject_cast<Navigator*>(&control))
        clickNavigator(scenario, *navigator, target);
    else if (auto* menu = qobject_cast<MenuButton*>(&control))
        clickMenuButton(scenario, *menu, target);
    else if (auto* tabs = qobject_cast<TabStrip*>(&control))
        clickTab(scenario, *tabs, target);
    else if (auto* button = qobject_cast<Button*>(&control); button && plain) {
        if (reach(scenario, *button))
            button->click();
    } else if (auto* picture = qobject_cast<Picture*>(&control); picture && plain) {
        if (usable(scenario, *picture))
            picture->click();
    } else if (auto* box = qobject_cast<CheckBox*>(&control); box && plain) {
        if (reach(scenario, *box))
            box->check(1 - box->checkState());
    } else {
        cannotClick(control, target);
    }
}

Action clickCommand(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the control"));
    const ClickTarget target = clickTarget(args);
    return [name, target](Scenario& scenario) {
        click(scenario, scenario.window().control(name), target);
    };
}

Action managementKey(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the field"));
    QString key = QStringLiteral("Kgestione");
    if (!args.atEnd())
        key = args.text(QStringLiteral("the key"));
    args.end();
    const QString extraItem = QStringLiteral("Kpers");
    if (key != u"Kgestione" && !(key.startsWith(extraItem) && key.size() > extraItem.size()))
        throw SyntaxError(
            QStringLiteral(
                "the management key must be Kgestione or Kpers and an item's key, not %1")
                .arg(key));
    return [name, key, extraItem](Scenario& scenario) {
        Field& field = scenario.window().control<Field>(name);
        if (!reach(scenario, field))
            return;
        const bool pressed = key == u"Kgestione" ? field.pressManagementKey()
                                                 : field.chooseMenuItem(key.mid(extraItem.size()));
        if (!pressed)
            scenario.note(QStringLiteral("%1 has no usable management key %2: nothing happens")
                              .arg(name, key));
    };
}

Action lookup(Arguments& args)
{
    const QString name = args.text(QStringLiteral("the field"));
    args.end();
    return [name](Scenario& scenario) {
        Field& field = scenario.window().control<Field>(name);
        if (reach(scenario, field) && !field.openLookup())
            scenario.note(QStringLiteral("%1 opened no lookup list").arg(name));
    };
}

} // namespace

void addPersonCommands(CommandTable& table)
{
    table.insert(QStringLiteral("focus"), focus);
    table.insert(QStringLiteral("type"), type);
    table.insert(QStringLiteral("select"), select);
    table.insert(QStringLiteral("check"), check);
    table.insert(QStringLiteral("leave"), leave);
    table.insert(QStringLiteral("key"), key);
    table.insert(QStringLiteral("click"), clickCommand);
    table.insert(QStringLiteral("mgmtkey"), managementKey);
    table.insert(QStringLiteral("lookup"), lookup);
}

} // namespace tarvello::script
