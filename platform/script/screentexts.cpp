#include "platform/script/screentexts.h"

#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigator.h"
#include "platform/script/tokenizer.h"

namespace tarvello::script {

QString quotedText(const QString& text)
{
    return untokenize({Token{text, true}});
}

QString listed(const QStringList& texts)
{
    if (texts.isEmpty())
        return QStringLiteral("none");
    QStringList quoted;
    for (const QString& text : texts)
        quoted << quotedText(text);
    return quoted.join(u' ');
}

QString valueText(const db::Value& value)
{
    if (value.isNull())
        return QStringLiteral("NULL");
    if (value.kind() != db::Value::Kind::Array)
        return value.toString();
    QStringList elements;
    for (const db::Value& element : value.toArray())
        elements << valueText(element);
    return elements.join(QStringLiteral(", "));
}

QString shownText(const controls::Control& control)
{
    if (const auto* field = qobject_cast<const controls::Field*>(&control))
        return field->displayText();
    if (const auto* list = qobject_cast<const controls::ComboBox*>(&control))
        return list->currentCaption();
    if (const auto* label = qobject_cast<const controls::Label*>(&control))
        return label->value().toString();
    return control.caption();
}

QStringList itemCodes(const controls::ComboBox& list)
{
    QStringList codes;
    for (const controls::ComboBox::Item& item : list.items())
        codes << item.code.toString();
    return codes;
}

QStringList buttonKeys(const controls::Navigator& navigator)
{
    QStringList keys;
    for (const controls::Navigator::Button& button : navigator.buttons())
        keys << button.key;
    return keys;
}

QStringList menuKeys(const controls::MenuButton& menu, bool visibleOnly)
{
    QStringList keys;
    for (const controls::MenuButton::Item& item : menu.items()) {
        if (item.visible || !visibleOnly)
            keys << item.key;
    }
    return keys;
}

QString agentOfRow(const controls::Grid& grid, int row)
{
    QString code = grid.value(row, agentCodeColumn()).toString();
    while (code.endsWith(u' '))
        code.chop(1);
    return code;
}

int agentRow(const controls::Grid& grid, const QString& code)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (agentOfRow(grid, row) == code)
            return row;
    }
    return -1;
}

} // namespace tarvello::script
