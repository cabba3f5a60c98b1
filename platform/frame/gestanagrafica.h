#pragma once

#include "platform/controls/framecommand.h"
#include "platform/controls/navigatortarget.h"
#include "platform/db/recordset.h"
#include "platform/frame/fieldbindings.h"
#include "platform/frame/frameeventargs.h"
#include "platform/frame/framemessages.h"
#include "platform/frame/keysearch.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QScopedValueRollback>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

namespace tarvello::controls {
class DataControl;
class Grid;
class Navigator;
} // namespace tarvello::controls

namespace tarvello::db {
class Connection;
class RuntimeError;
class TransactionGuard;
} // namespace tarvello::db

namespace tarvello::frame {

// The record frame (the host's GestAnagrafica): it binds the registered controls of a screen
// to the columns of one recordset and carries a row through its life, raising its events
// around each step. The same class serves the header of a screen (the master frame, which
// writes its row to the database at once) and its detail grids (which keep their rows
// pending until the caller's batch save).
//
// Binding. A registered control bound to a column (its data field) shows the value of that
// column for the row shown; an edit of the control writes the value back, converted to the
// column's kind. A value that cannot be converted, or that does not fit the column's size as
// the database describes it (a text that is not a number for a numeric column, a fraction
// for an integer, a number beyond the digits of a decimal), is never written: leaving the
// control is refused with a message naming it, before the module hears of the leaving, and
// so is a save. A field bound to a text column takes no more characters than it holds.
// Decodable fields are decoded whenever a row is shown. Writes made to the shown row by code
// through the recordset are shown in the controls as they happen.
//
// Statuses (FrameStatus): 0 an existing row is shown, 1 search entry, 2 a new row is being
// entered. Status 2 reached because there is nothing to show (an empty recordset, the last
// row deleted) adds the new row only when it is first edited or saved; new, or status 2 set
// by code, adds it at once (code may write into it). Either way AfterAddNew is raised when
// the row is added, so handlers can key it.
//
// Change flags. The first flag says the frame holds changes the database has not seen yet:
// on a master frame any edit of its row; on a detail frame rows confirmed or deleted since
// the last batch save (the batch-save handler clears it). The second flag says the row shown
// has edits not yet confirmed. An edit of a registered control through the frame (by the
// person, or by code setting the control) sets the second flag, and on a master frame the
// first as well; what a ChangeStatus handler puts into a control bound to no column is the
// screen showing the row and sets neither. Both flags can be set by code; the change
// notification sets them.
//
// How a master and a detail frame save, undo and delete their rows, and how the frame follows
// moves of its recordset, is told beside the code that does it.
//
// Events (the host's names and arguments) are raised with direct connections; a handler that
// throws db::RuntimeError has its error reported to the host of the frame's form (or shown
// by the frame itself, on no form) and the operation is treated as refused (a Before event)
// or carried on (an After event).
class GestAnagrafica : public QObject,
                       public controls::NavigatorTarget,
                       public controls::FrameActions {
    Q_OBJECT
public:
    using Bookmark = db::Recordset::Bookmark;

    // When the row's changes reach the database: at once on save (the header of a screen), or
    // kept pending until the caller's batch save (its detail grids).
    enum class WriteMode { AtOnce, Pending };

    // How confirmPendingChanges settles the unconfirmed changes.
    struct SettleOptions {
        // The fields are checked and BeforeUpdate raised (otherwise the row is taken as it is).
        bool check = false;
        // The row is shown again afterwards.
        bool show = false;
        // The person chooses Yes (save), No (drop) or Cancel; otherwise the changes are saved.
        bool ask = false;
    };

    // How dropPendingRow and deleteRows go about it.
    struct DropOptions {
        // AfterUndo, or BeforeDelete and AfterDelete, are raised.
        bool raiseEvents = false;
        bool show = false;
        // The person confirms first (Yes / No).
        bool ask = false;
    };

    // Opens and closes a bulk-rewrite bracket for the life of the object.
    class BulkRewrite {
    public:
        explicit BulkRewrite(GestAnagrafica& frame);
        ~BulkRewrite();
        BulkRewrite(const BulkRewrite&) = delete;
        BulkRewrite& operator=(const BulkRewrite&) = delete;

    private:
        QPointer<GestAnagrafica> m_frame; // Not owned.
    };

    explicit GestAnagrafica(MessageBoxes& prompts, QObject* parent = nullptr);
    ~GestAnagrafica() override;

    // Binds the frame to its recordset and shows its current row (the first when it stands
    // outside its rows; status 2 when it has none). The navigator's record buttons act on the
    // frame from now on. searchFilter, when not empty, is the condition ("MG17_DITTA_CG18 = 1")
    // that a search by key adds when it looks in the database; when empty, the search keeps
    // to the company of the row it starts from (its columns named ..._DITTA_CG18).
    void initialise(QObject* module, db::Connection& connection, db::RecordsetPtr recordset,
                    const QString& sql, const QString& searchFilter, controls::Navigator* navigator,
                    controls::Grid* grid);
    // The host module the frame works for. Not owned.
    QObject* module() const { return m_module; }
    db::Connection* connection() const { return m_connection; }

    // The control is bound to its data field (none for a control the frame only checks).
    void registerField(controls::DataControl* control);
    QList<controls::DataControl*> fields() const;
    // The control whose column a search by key looks at (registered here when it is not yet).
    void setKeyField(controls::DataControl* control);
    controls::DataControl* keyField() const;
    WriteMode writeMode() const { return m_writeMode; }
    void setWriteMode(WriteMode mode) { m_writeMode = mode; }
    void addDetailFrame(GestAnagrafica* detail);
    QList<GestAnagrafica*> detailFrames() const;
    // What the frame manages, as its questions name it ("la gestione anagrafica agenti").
    QString description() const { return m_messages.description(); }
    void setDescription(const QString& description) { m_messages.setDescription(description); }
    // The query text the frame's rows come from.
    QString sql() const { return m_sql; }
    void setSql(const QString& sql) { m_sql = sql; }

    // The frame's rows: one recordset object for the frame's life, reopened in place on each
    // new query, so whoever holds it (a grid, the screen's code) always sees the frame's rows.
    db::RecordsetPtr recordset() const { return m_recordset; }
    // Opens the frame's recordset again, in place, on another query, which becomes the
    // frame's; then shows its rows, in the grid as well. A query the database refuses is
    // passed on, the frame keeping the rows and the query it had.
    void reopen(const QString& sql);
    // Gives the frame a recordset (nullptr lets go of it) without showing anything: a refresh
    // follows. Given back the recordset it had, the frame's row is made current again.
    void setRecordset(db::RecordsetPtr recordset);
    controls::Grid* grid() const;
    void setGrid(controls::Grid* grid);
    controls::Navigator* navigator() const;

    FrameStatus status() const { return m_status; }
    // A column of the existing row shown; none in search entry, while a new row is being
    // entered, or when there is no row to show.
    std::optional<db::Value> shownRowValue(const QString& column) const;
    // Code writes a column of the frame's row: the recordset's current row, which is the row
    // shown or the new row being entered. Search entry has no row of its own: there the value
    // is held apart, shown in the controls bound to the column and looked up by search(true);
    // it is nobody's change, never reaches the rows or the database, and goes when search
    // entry is left. Raises db::RuntimeError as the recordset does (no row, no such column).
    void writeColumn(const QString& column, const db::Value& value);
    // Code reads a column of the frame's row, the one writeColumn writes: in search entry what
    // was written or typed there, otherwise the recordset's current row; Empty when nothing was
    // written or there is no row. Search entry never reads the row shown before it.
    db::Value readColumn(const QString& column) const;
    // What the fields say the row shown is: its key and the first field after the key with a
    // text ("A001 RICCI FRANCESCA"); empty without a key.
    QString recordDescription() const;
    // New adds a new row at once (code may write into it), Search starts search entry, Browse
    // shows the recordset's current row (a new row being entered stays as it is). Unconfirmed
    // edits of the row left are dropped, not asked about.
    void setStatus(FrameStatus status);
    bool changeFlag() const { return m_changed; }
    void setChangeFlag(bool changed);
    bool secondChangeFlag() const { return m_rowEdited; }
    void setSecondChangeFlag(bool changed);
    // Code tells the frame its row has changed (or not): both flags take the value.
    void notifyChange(bool changed = true);
    // Whether there are unconfirmed changes: the frame's own, then IsRecordChanged.
    bool isRecordChanged();
    // Reads the flags again (raising IsRecordChanged) and announces the state.
    void refreshState();
    bool isLocked() const { return m_locked; }
    // A locked frame adds, saves and deletes nothing and takes no edits into its row.
    void setLocked(bool locked) { m_locked = locked; }
    bool followsRowMoves() const { return m_followMoves; }
    void setFollowRowMoves(bool follow);
    void beginBulkRewrite();
    void endBulkRewrite();
    bool inBulkRewrite() const { return m_bulkDepth > 0; }

    // The one way in for a navigator's buttons and the host toolbar.
    short frameStatus() const override { return short(status()); }
    bool execute(controls::FrameCommand command) override;

    // Record operations; each answers whether it was carried out.

    bool addNew();
    bool save();
    bool undo();
    // Rows entered on the details, maybe on a page out of sight, go with an undo of the
    // master: the person confirms first (Yes / No, No by default).
    bool undoWithDetails();
    // Asks the person first.
    bool deleteRecord();
    // Search entry (status 1): the fields empty, the focus on the key field.
    bool enterSearch();
    // Looks up the key written into the key column (fromKeyColumn) or typed into the key field
    // (always so in status 1). Found, the frame shows that row in status 0: a new row being
    // entered is dropped, and an existing row the key was written into gets its values back.
    // Not found, nothing changes (quiet: without telling the person). A detail frame looks
    // among its own rows only: a key typed into a new detail row that another row already
    // has brings that row up (the key check of a new row). A master frame then looks in its
    // table; a row found there is brought into the recordset, by a requery or, when the
    // recordset's query cannot return it, by reopening the recordset on that row.
    bool search(bool fromKeyColumn = true, bool quiet = true);
    // The host toolbar's search: enters search entry, or in search entry looks the key up.
    // A key field with a list takes a name as well: what is not a key narrows the list, and
    // the row picked there is looked up. Enter on the key field in search entry does the same.
    bool searchCommand();
    // Settles the unconfirmed changes; true when it is safe to go on: saved, or dropped at the
    // person's No (Cancel, or a save that fails, is not safe).
    bool confirmPendingChanges(SettleOptions options);
    // Before code lets go of the rows the frame holds (reopening its recordset on other
    // rows): when they hold changes of the person that the database has not seen, asks
    // Yes / No / Cancel as the save question does. Yes saves the master frame this one is a
    // detail of (which saves its details with it) and answers whether that succeeded; No
    // answers true, the changes going with the rows; Cancel answers false, and the caller
    // stays where it was.
    bool confirmLettingRowsGo();
    // Undo, with the options given.
    bool dropPendingRow(DropOptions options);
    // Deletes every row the frame shows (AfterDelete raised once). A frame that writes at
    // once writes the deletions at once.
    bool deleteRows(DropOptions options);
    // The batch save: raises UpdateBatchAll, whose handler writes the pending rows. Rows the
    // handler left pending without trying to write them (a partner deleted while the frame
    // shows nothing) are written by the frame; a failure is told, and so is a row being
    // entered that kept them from being written.
    void updateBatch();

    // Moves. Unconfirmed changes of the row left are settled first (a frame that writes at
    // once asks), and ChangeStatus is raised for the row reached. False when the move could
    // not be made.
    bool moveFirst();
    bool moveLast();
    bool movePrevious();
    bool moveNext();
    // The bookmark of the row shown shows that row again.
    bool moveToBookmark(Bookmark bookmark);

    // Stops following the recordset (before it is closed, requeried or walked by code).
    void detach();
    bool isAttached() const { return m_attached; }
    // Binds the frame again and shows its row. A text other than the recordset's query
    // reopens the recordset on it; an empty text keeps the recordset, which may have been
    // requeried or given back with setRecordset meanwhile.
    void refresh(const QString& sql = {});
    // Lets go of the recordset, the controls, the navigator and the detail frames.
    void terminate();

    std::optional<bool> navigatorAction(controls::Navigator& navigator,
                                        const QString& key) override;

Q_SIGNALS:
    void AfterAddNew(int fenm_operationresult);
    void AfterDelete(int fenm_operationresult);
    void AfterUndo(int fenm_operationresult);
    void AfterUpdate(int fenm_operationresult);
    void BeforeDelete(tarvello::frame::CancelArgs& args);
    void BeforeUpdate(tarvello::frame::CancelArgs& args);
    void ChangeStatus(int fenm_status, int fenm_reason);
    void IsRecordChanged(tarvello::frame::RecordChangedArgs& args);
    void UpdateBatchAll();

    // The status or the change state changed.
    void stateChanged(tarvello::frame::FrameStatus status, bool changed);

private:
    // Marks the frame's own work on its recordset, which its reactions must not take for a
    // move or a write made elsewhere, for the life of the object returned.
    [[nodiscard]] QScopedValueRollback<int> quiet()
    {
        return QScopedValueRollback<int>(m_quietDepth, m_quietDepth + 1);
    }

    bool isOpen() const;
    // After TerminateGestAnagrafica the frame is gone for its module: a call then is the caller's
    // fault, asserted in debug builds and a no-op in release builds. working() is alive and open;
    // a frame asked to act before its rows are open does nothing, which is no fault.
    bool alive() const;
    bool working() const;
    bool writesAtOnce() const { return m_writeMode == WriteMode::AtOnce; }
    // A new row has been added and is being entered.
    bool entering() const;
    // What the database says of the base table; nothing when it does not describe it.
    std::optional<db::TableInfo> baseTableInfo() const;
    // What the database says of the base column behind a column of the recordset.
    std::optional<db::TableInfo::ColumnInfo> describe(const QString& column) const;
    std::optional<db::TableInfo::ColumnInfo>
    describe(const QString& column, const std::optional<db::TableInfo>& table) const;
    ColumnFormat formatOf(const QString& column) const;
    std::optional<Bookmark> cursorBookmark() const;
    std::optional<Bookmark> visible(std::optional<Bookmark> row) const;
    // Makes the row shown the recordset's current row; false when there is none.
    bool placeCursor();
    db::Value shownValue(const QString& column) const;
    // The row to show after a change of recordset: the current one, else the first.
    std::optional<Bookmark> currentOrFirst();

    void attach();
    // The recordset opened again on the query, in place, and followed from its first row.
    void reopenRows(db::Connection& connection, const QString& sql);
    db::Connection* rowsConnection() const;
    void goToRow(std::optional<Bookmark> row, int reason, bool raiseEvent = true);
    void showRow(int reason, bool raiseEvent = true);
    // A row shown afresh carries no marks of values found wrong in the row before: the
    // frame's fields lose them, and on a master so do the form's fields bound to no column
    // (a code shown beside the id it stands for). Decoding the row marks them again.
    void clearMarks();
    // Reads the row shown, or the defaults of a new row not added yet.
    FieldBindings::ColumnReader rowReader() const;
    void syncControls(const controls::DataControl* except);
    void reportHandlerError(const db::RuntimeError& error) const;
    void takeSnapshot();
    void restoreSnapshot();
    bool addRow(bool show, const controls::DataControl* editing = nullptr);
    void dropNewRow();
    // Leaves the row shown as it was: a new row is dropped, an existing one restored.
    void leaveShownRow();
    void announceState();

    bool checkFields();
    bool writeRow(bool check, bool show);
    void discardDetailChanges();
    void writePending(db::Recordset& rows);
    // Changes of the person the database has not seen: rows confirmed, deleted or being typed.
    bool holdsUnsavedChanges() const;
    void discardPendingChanges();
    enum class DeleteScope { ShownRow, AllRows };
    // BeforeDelete, then the rows deleted (and, on a master, written), as one transaction.
    bool deleteWithEvents(DeleteScope scope, bool raiseEvents);
    bool shownDetailsChanged() const;
    bool deleteAndWrite(const std::function<void()>& deleteRows,
                        std::optional<Bookmark> shownBefore, bool raiseEvents,
                        std::optional<db::TransactionGuard>& transaction);
    void reportSaveFailure(const db::RuntimeError& error);
    void finishDelete(std::optional<Bookmark> next, bool raiseEvents, bool show);
    // Landing on the row shown is no move unless showAgain: then the row is shown again.
    bool moveBy(const std::function<void(db::Recordset&)>& move, bool showAgain = false);
    std::optional<Bookmark> findInRecordset(const QString& column, const db::Value& key);
    std::optional<Bookmark> bringFromDatabase(const QString& column, const db::Value& key);

    bool reacting() const;
    bool leaveFor(Bookmark target);
    void followNearest();
    void resync();
    void onEdited(controls::DataControl* control);
    // What is typed into a bound control in search entry is held with what code writes there.
    void holdSearchEntry(const controls::DataControl* control);
    db::Value searchEntryValue(const QString& column) const;
    void onLeaving(controls::DataControl* control, bool& cancel);
    void onCurrentChanged();
    void onRowsReset();
    void onRowChanged(tarvello::db::Recordset::Bookmark bookmark);

    // Raises the event through fire(); false when a handler failed (reported as the procedure
    // "<frame>_<event>"). A Before event whose handler failed refuses the operation whatever
    // the person answers: a row is never written or deleted after its checks failed halfway.
    bool raise(const char* event, const std::function<void()>& fire);

    FrameMessages m_messages;
    QPointer<QObject> m_module;              // Not owned.
    db::Connection* m_connection = nullptr;  // Not owned.
    db::RecordsetPtr m_recordset;            // Shared with the screen.
    std::weak_ptr<db::Recordset> m_released; // Taken away by setRecordset(nullptr).
    QList<QMetaObject::Connection> m_recordsetConnections;
    QPointer<controls::Navigator> m_navigator; // Not owned.
    QPointer<controls::Grid> m_grid;           // Not owned.
    QPointer<controls::Grid> m_heldGrid;       // Not owned; the grid held by a bulk rewrite.
    FieldBindings m_fields;
    QPointer<controls::DataControl> m_keyField; // Not owned.
    QList<QPointer<GestAnagrafica>> m_details;  // Not owned.
    QPointer<GestAnagrafica> m_masterFrame;     // Not owned: the frame this is a detail of.
    QString m_sql;
    KeySearch m_keySearch;

    FrameStatus m_status = FrameStatus::New;
    std::optional<Bookmark> m_shown;
    // The columns written or typed in search entry, by field index; emptied whenever a row or
    // search entry is shown afresh.
    QHash<int, db::Value> m_searchEntry;
    // The row to go back to when a new row or a search is left.
    std::optional<Bookmark> m_returnTo;
    db::ValueList m_snapshot;
    bool m_changed = false;
    bool m_rowEdited = false;
    WriteMode m_writeMode = WriteMode::Pending;
    bool m_locked = false;
    bool m_followMoves = true;
    bool m_attached = false;
    bool m_terminated = false;
    int m_bulkDepth = 0;
    int m_quietDepth = 0;
    bool m_writing = false;
    // ChangeStatus is being raised for the row shown.
    bool m_announcing = false;
    quint64 m_generation = 0;
};

} // namespace tarvello::frame
