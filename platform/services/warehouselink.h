#pragma once

#include "src/host/warehouseconnection.h"

namespace tarvello::services {

class HostManagements;

// The warehouse connection as this host has it: the managements of routes ("Giri", opened on
// the route), of the customer list ("Elenco clienti", opened for the agent) and of depots
// ("Depositi", opened on the depot). A route or the customers the person chooses there are
// handed to the module's data-transfer handler before the opening returns; a depot goes
// into the field. Opened for no module, a management has no window to belong to.
class WarehouseLink final : public host::WarehouseConnection {
public:
    explicit WarehouseLink(const HostManagements& managements)
        : m_managements(managements)
    {}

    void setModule(host::Cinterface* module) override { m_module = module; }
    void setField(controls::Field* field) override { m_field = field; }
    void setPosition(qint32 left, qint32 top) override;
    void setDataTransferHandler(DataTransfer handler) override { m_handler = std::move(handler); }

    void openRoutes(const QString& route) override;
    void openCustomerList(const QString& agent) override;
    void openDepots(const QString& depot) override;

    host::Cinterface* module() const { return m_module; }
    controls::Field* field() const { return m_field; }
    qint32 left() const { return m_left; }
    qint32 top() const { return m_top; }

private:
    void transfer(const host::WarehouseTransfer& data) const;

    const HostManagements& m_managements; // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    controls::Field* m_field = nullptr;   // Not owned.
    qint32 m_left = 0;
    qint32 m_top = 0;
    DataTransfer m_handler;
};

} // namespace tarvello::services
