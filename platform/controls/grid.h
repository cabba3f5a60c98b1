#pragma once

#include "platform/controls/control.h"
#include "platform/controls/gridcolumn.h"
#include "platform/db/positionindex.h"
#include "platform/db/recordset.h"

#include <QList>
#include <optional>

namespace tarvello::controls {

// A grid showing the rows of a recordset (its data source) through a column layout.
//
// The rows are those the recordset shows, in its order (filter and sort included); they are
// read through a clone, so showing the grid never moves the recordset. The selection is the
// recordset's current row and follows it; a click on a row moves the recordset there.
// Every cell's text is its value formatted by the column's display format, then offered to
// cellTextRequested, whose handler may replace it.
class Grid : public Control {
    Q_OBJECT
public:
    using Control::Control;

    // nullptr unbinds.
    void setDataSource(db::RecordsetPtr recordset);
    db::RecordsetPtr dataSource() const { return m_source; }

    QString keyColumn() const { return m_keyColumn; }
    void setKeyColumn(const QString& field);
    const QList<GridColumn>& columns() const { return m_columns; }
    int columnCount() const { return int(m_columns.size()); }
    // Adds a column; an empty key takes the field's name.
    void addColumn(GridColumn column);
    void addColumn(const QString& field, const QString& caption, int width,
                   const QString& format = {});
    void clearColumns();
    // By key, or else by field; -1 when there is none.
    int columnIndex(QStringView keyOrField) const;
    void setColumnNumeric(const QString& keyOrField, bool numeric);
    void setColumnVisible(const QString& keyOrField, bool visible);
    void setColumnCaption(const QString& keyOrField, const QString& caption);
    void setColumnWidth(const QString& keyOrField, int width);
    void setColumnFormat(const QString& keyOrField, const QString& format);
    // Makes a column show pictures of that image list.
    void setColumnImageList(const QString& keyOrField, const QString& imageList);
    Qt::Alignment alignment(int column) const;

    int rowCount() const { return int(m_rows.size()); }
    // Empty outside the rows or when the recordset has no such field.
    db::Value value(int row, QStringView field) const;
    db::Value cellValue(int row, int column) const;
    // Raises cellTextRequested.
    QString cellText(int row, int column);
    // The key of a picture column's image for a row; empty for other columns.
    QString pictureKey(int row, int column) const;
    db::Value rowKey(int row) const;
    // The row showing a bookmark; -1 when none does.
    int rowOf(db::Recordset::Bookmark bookmark) const
    {
        return int(m_rowOf.find(m_rows, bookmark));
    }

    // The row of the recordset's current row; -1 when it has none or it is not shown.
    int selectedRow() const { return m_selected; }
    // A person clicks a row: the recordset moves there, then clicked() is raised.
    bool clickRow(int row);
    // Brings the selection to the recordset's current row and raises clicked(), as a click
    // on that row would.
    void selectCurrentRow();
    // Moves the recordset to the row whose key column holds the key, or before its first row
    // when none does (or the key is none), without a click; true when the row was found.
    bool showKey(const std::optional<db::Value>& key);
    // Reads the rows again.
    void refresh();
    // The host asks whoever fills the grid for its rows again (refreshRequested).
    void requestRefresh() { Q_EMIT refreshRequested(); }

Q_SIGNALS:
    void dataSourceChanged();
    void keyColumnChanged(const QString& field);
    void columnsChanged();
    void rowsReset();
    // A row is added after the others, in place: the views insert it rather than read every
    // row again.
    void rowAboutToBeAppended(int row);
    void rowAppended(int row);
    void rowChanged(int row);
    void selectedRowChanged(int row);
    void clicked();
    void refreshRequested();
    void cellTextRequested(tarvello::controls::CellTextArgs& args);

protected:
    // The rows to show, given the recordset's rows in its order.
    virtual QList<db::Recordset::Bookmark> arrangeRows(const QList<db::Recordset::Bookmark>& rows);
    // The recordset moved to a row that is not shown; true when it should be shown now.
    virtual bool revealRow(db::Recordset::Bookmark) { return false; }
    // Whether a row the recordset added after its others is shown after the rows shown; false
    // when the layout cannot simply grow by it and the rows must be read again.
    virtual bool appendsInPlace() const { return true; }
    // Lays the rows out again from the rows already read.
    void rearrange();
    db::Value valueAt(db::Recordset::Bookmark bookmark, QStringView field) const;
    const QList<db::Recordset::Bookmark>& recordOrder() const { return m_recordOrder; }
    db::Recordset::Bookmark bookmarkAt(int row) const { return m_rows.at(row); }
    // The data source's current row, if it has one.
    std::optional<db::Recordset::Bookmark> sourceBookmark() const;

private:
    void reload();
    void onRowAppended(db::Recordset::Bookmark bookmark);
    void updateSelection();
    void onRowChanged(db::Recordset::Bookmark bookmark);
    std::optional<db::Recordset::Bookmark> bookmarkOfKey(const db::Value& key) const;
    template <class Change>
    void changeColumn(const QString& keyOrField, Change change);

    db::RecordsetPtr m_source;
    // A clone of the source with its filter and sort, moved freely to read cells.
    db::RecordsetPtr m_reader;
    QString m_keyColumn;
    QList<GridColumn> m_columns;
    QList<db::Recordset::Bookmark> m_recordOrder;
    QList<db::Recordset::Bookmark> m_rows;
    db::PositionIndex<db::Recordset::Bookmark> m_rowOf; // in m_rows
    int m_selected = -1;
    bool m_arranging = false;
    QList<QMetaObject::Connection> m_sourceConnections;
};

} // namespace tarvello::controls
