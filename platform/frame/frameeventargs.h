#pragma once

namespace tarvello::frame {

// What a record frame is doing with its row. Its value is the host's `fenm_status`, which
// events carry as a number.
enum class FrameStatus {
    // An existing row is shown; it may be changed and saved.
    Browse = 0,
    // Search entry: the fields are empty and the key typed is looked up.
    Search = 1,
    // A new row is being entered.
    New = 2,
};

// Why ChangeStatus was raised (`fenm_reason`). A screen reloads what it shows beside the
// row (detail grids, say) for every reason but Refreshed.
namespace StatusReason {
// The frame was given its recordset: initialise, refresh with a text, a recordset set.
inline constexpr int Bound = 0;
// Another row of the recordset: a move, a bookmark, a grid click, reactions switched on.
inline constexpr int Moved = 1;
// A new row is being entered (new, status set to 2 by code, nothing left to show).
inline constexpr int NewRow = 2;
// Search entry began.
inline constexpr int SearchEntry = 3;
// A search by key landed on an existing row.
inline constexpr int Found = 4;
// The new row was saved and is now an existing one.
inline constexpr int Inserted = 5;
// The row was deleted; the next (or previous) row is shown, or none.
inline constexpr int Deleted = 6;
// The same row is shown again after its save: what the screen shows beside it still holds
// and must not be reloaded.
inline constexpr int Refreshed = 7;
// Status 0 set by code.
inline constexpr int StatusSet = 8;
// The row is shown again with the values read from the database (an undo): what the screen
// shows beside it is shown anew as well.
inline constexpr int Restored = 9;
} // namespace StatusReason

// `fenm_operationresult`: the value an After event carries when the operation succeeded.
inline constexpr int OperationSucceeded = -1;
inline constexpr int OperationFailed = 0;

// The arguments a handler answers through a reference, in the manner of the control events:
// connect directly, the frame reads the answer as soon as the signal returns.

// BeforeUpdate, BeforeDelete: set fbol_Cancel to refuse the operation.
struct CancelArgs {
    bool fbol_Cancel = false;
};

// IsRecordChanged: comes in with what the frame knows of its own row; a handler may add the
// changes the frame cannot see (its detail frames', say).
struct RecordChangedArgs {
    bool fbol_isRecordChanged = false;
};

} // namespace tarvello::frame
