#pragma once

#include "platform/db/value.h"

#include <QString>
#include <QStringList>

namespace tarvello::controls {
class ComboBox;
class Control;
class Grid;
class MenuButton;
class Navigator;
} // namespace tarvello::controls

namespace tarvello::script {

// The texts a scenario compares and its messages show.

// A text as a scenario writes it, in quotes.
QString quotedText(const QString& text);
// Texts in quotes, separated by blanks; "none" for no texts.
QString listed(const QStringList& texts);
// A value as a scenario writes it: NULL for Null, an array's elements separated by ", ",
// numbers with a '.' for decimals, dates as dd/MM/yyyy.
QString valueText(const db::Value& value);

// What a control shows: a field its text (formatted when it has not the focus), a list the
// caption of its item, a label its caption, any other control its caption.
QString shownText(const controls::Control& control);
// The codes of a list's items, in order.
QStringList itemCodes(const controls::ComboBox& list);
QStringList buttonKeys(const controls::Navigator& navigator);
// The keys of a menu button's items; only those a person sees when visibleOnly.
QStringList menuKeys(const controls::MenuButton& menu, bool visibleOnly);

// The column of the agents' code in the agents tree and its grids.
inline QString agentCodeColumn()
{
    return QStringLiteral("MG17_AGENTE");
}
// The code of the agent a grid's row shows, trailing blanks removed.
QString agentOfRow(const controls::Grid& grid, int row);
// The grid's row showing that agent; -1 when none does.
int agentRow(const controls::Grid& grid, const QString& code);

} // namespace tarvello::script
