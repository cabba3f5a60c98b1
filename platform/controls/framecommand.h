#pragma once

namespace tarvello::controls {

// What a person asks of a record frame, through a navigator's buttons or the host toolbar.
enum class FrameCommand {
    New,
    Save,
    // The row shown goes back to where it was (a navigator's "Annulla").
    Undo,
    // The same, asking first when rows entered on the detail frames would go with it (the
    // host toolbar's undo).
    UndoWithDetails,
    Delete,
    Search,
    First,
    Previous,
    Next,
    Last,
};

// The active record frame as the host toolbar sees it.
class FrameActions {
public:
    virtual ~FrameActions() = default;
    // 0 an existing row is shown, 1 search entry, 2 a new row is being entered.
    virtual short frameStatus() const = 0;
    // Whether the command was carried out.
    virtual bool execute(FrameCommand command) = 0;
};

} // namespace tarvello::controls
