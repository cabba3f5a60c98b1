#pragma once

namespace tarvello::services {

// What the host's toolbar does to the active record frame (the ActiveFrame of the active
// module) when no module takes a press over. A record frame implements it.
class FrameActions {
public:
    enum class Move { First, Previous, Next, Last };

    virtual ~FrameActions() = default;
    // Each action answers whether it was carried out.
    // 0 an existing row is shown, 1 search entry, 2 a new row is being entered.
    virtual short frameStatus() const = 0;
    virtual bool newRecord() = 0;
    virtual bool saveRecord() = 0;
    virtual bool undoRecord() = 0;
    virtual bool deleteRecord() = 0;
    virtual bool searchRecord() = 0;
    virtual bool moveRecord(Move move) = 0;
};

} // namespace tarvello::services
