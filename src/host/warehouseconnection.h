#pragma once

#include "platform/db/recordset.h"
#include "platform/db/value.h"

#include <QString>
#include <functional>

namespace tarvello::controls {
class Field;
}

namespace tarvello::host {

class Cinterface;

// What a management opened through the warehouse connection hands back while it runs:
// element 0 of its array, a code or a recordset, and the operation number that says which.
struct WarehouseTransfer {
    // A route code chosen in the routes management.
    static constexpr int Route = 46;
    // The customers chosen in the customer list (CG44_CLIFOR, MG22_CODDESTIN).
    static constexpr int Customers = 47;

    int operation = 0;
    db::Value value;
    db::RecordsetPtr recordset;
};

// The host's warehouse-connection component: it opens the warehouse's managements for a
// module. Each opening is modal; what is chosen reaches the module through the data-transfer
// handler before the opening returns. Released by destroying it.
class WarehouseConnection {
public:
    using DataTransfer = std::function<void(const WarehouseTransfer&)>;

    virtual ~WarehouseConnection() = default;

    // The module the managements open for; nullptr lets it go.
    virtual void setModule(Cinterface* module) = 0;
    // The field a route chosen belongs to, and where the calling screen stands (twips).
    virtual void setField(controls::Field* field) = 0;
    virtual void setPosition(qint32 left, qint32 top) = 0;
    virtual void setDataTransferHandler(DataTransfer handler) = 0;

    // The routes management, opened on a route code.
    virtual void openRoutes(const QString& route) = 0;
    // The customer list of an agent (its code).
    virtual void openCustomerList(const QString& agent) = 0;
    // The depots management, positioned on a depot code (none when empty); a depot chosen
    // there goes back into the field.
    virtual void openDepots(const QString& depot) = 0;
};

} // namespace tarvello::host
