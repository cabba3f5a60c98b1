#pragma once

#include <QString>

class QAbstractItemModel;

namespace tarvello::gui {

// The rows a grid's view shows, as text a spreadsheet opens: a title line, the headings, then
// each row (a tree's rows depth first), in the order and with the columns on screen. Columns
// without a heading (pictures) are left out. Fields are quoted and separated by ';'.
QString exportedRows(const QAbstractItemModel& shown, const QString& title);

} // namespace tarvello::gui
