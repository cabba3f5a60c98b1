#pragma once

#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/management/managementdescription.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

namespace tarvello::controls {
class Form;
class Field;
class Grid;
struct KeyArgs;
} // namespace tarvello::controls

namespace tarvello::services {

class UserPrompts;

// A table management of the host, built from its description: a form with a search box
// (TXT_CERCA), a grid of the rows (GRD_RIGHE), a field per editable column (TXT_ and the
// column's name) bound to the row shown by a master record frame (FME_GESTIONE), and the
// buttons CMD_SCEGLI and CMD_CHIUDI. The host's toolbar acts on the frame: new, save, undo,
// delete and search keep the table with the frame's own checks and messages.
//
// The search box narrows the rows as the person types, to those whose searched columns
// contain the text. Enter in the grid or the search box, or CMD_SCEGLI, chooses: what the
// description hands back is kept (chosen()) and the form unloads. Space in the grid ticks the
// current row where several rows are chosen. Esc, or CMD_CHIUDI, closes without a choice.
// Unsaved changes are asked about before the rows are narrowed, a choice is made or the
// window closes; the person may keep them, and then nothing of that happens.
class TableManagement final : public QObject {
    Q_OBJECT
public:
    static const QString SearchBox;
    static const QString Rows;
    static const QString ChooseButton;
    static const QString CloseButton;
    static const QString Frame;
    // The computed column holding a row's tick.
    static const QString Tick;

    TableManagement(ManagementDescription description, UserPrompts& prompts,
                    QObject* parent = nullptr);
    ~TableManagement() override;

    // The field editing a column.
    static QString fieldName(const QString& column);

    // Opens its own connection, reads the rows and shows the one positioned on (the first
    // when there is none). Raises db::RuntimeError when the database cannot give them.
    void open(const ManagementOpening& opening);

    const ManagementDescription& description() const { return m_description; }
    const ManagementOpening& opening() const { return m_opening; }
    controls::Form& form() const { return *m_form; }
    controls::Grid& grid() const { return *m_grid; }
    // nullptr for a list, which edits nothing.
    frame::GestAnagrafica* recordFrame() const { return m_frame; }
    db::Connection& connection() { return m_connection; }
    db::RecordsetPtr rows() const { return m_rows; }

    // False when the person kept unsaved changes, and the rows stay as they were.
    bool search(const QString& text);
    // Sorts by the column, ascending; again on the same column, descending.
    void sortBy(const QString& column);
    const QString& sortColumn() const { return m_sortColumn; }
    bool sortAscending() const { return m_ascending; }
    void toggleTick();
    bool choose();
    bool close();

    // What the rows chosen hand back, one list of the handed-back columns per row; empty
    // while nothing was chosen.
    const QList<db::ValueList>& chosen() const { return m_chosen; }

Q_SIGNALS:
    void sorted(const QString& column, bool ascending);

private:
    void buildControls();
    void addField(const ManagedColumn& column);
    void connectEvents();
    void openRows();
    QString rowsSql() const;
    QString ownRowsFilter() const;
    void position();
    void fillNewRow();
    void showKeyFields(frame::FrameStatus status);
    void onKey(controls::KeyArgs& args, bool inGrid);
    bool settle();
    QList<db::ValueList> rowsToHandBack() const;
    bool isKeyOrParent(const QString& column) const;

    ManagementDescription m_description;
    UserPrompts& m_prompts; // Not owned.
    ManagementOpening m_opening;
    db::Connection m_connection;
    controls::Form* m_form;                  // Owned (QObject child).
    controls::Field* m_search = nullptr;     // Owned by the form.
    controls::Grid* m_grid = nullptr;        // Owned by the form.
    QPointer<frame::GestAnagrafica> m_frame; // Owned by the form.
    db::RecordsetPtr m_rows;
    QString m_searched;
    QString m_sortColumn;
    bool m_ascending = true;
    QList<db::ValueList> m_chosen;
};

} // namespace tarvello::services
