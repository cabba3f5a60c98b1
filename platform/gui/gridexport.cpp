#include "platform/gui/gridexport.h"

#include <QAbstractItemModel>
#include <QList>
#include <QStringList>

namespace tarvello::gui {

namespace {

QString csvField(const QString& text)
{
    QString quotedText = text;
    quotedText.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quotedText + u'"';
}

void appendRows(const QAbstractItemModel& shown, const QModelIndex& parent,
                const QList<int>& columns, QStringList& lines)
{
    for (int row = 0; row < shown.rowCount(parent); ++row) {
        QStringList cells;
        for (const int column : columns)
            cells << csvField(shown.index(row, column, parent).data().toString());
        lines << cells.join(u';');
        const QModelIndex first = shown.index(row, 0, parent);
        if (shown.hasChildren(first))
            appendRows(shown, first, columns, lines);
    }
}

} // namespace

QString exportedRows(const QAbstractItemModel& shown, const QString& title)
{
    QList<int> columns;
    QStringList headings;
    for (int column = 0; column < shown.columnCount(); ++column) {
        const QString heading = shown.headerData(column, Qt::Horizontal).toString().trimmed();
        if (heading.isEmpty())
            continue;
        columns << column;
        headings << csvField(heading);
    }
    QStringList lines{csvField(title), headings.join(u';')};
    appendRows(shown, {}, columns, lines);
    return lines.join(u'\n') + u'\n';
}

} // namespace tarvello::gui
