#pragma once

#include "platform/services/management/managementdescription.h"
#include "src/host/calledmodule.h"
#include "src/host/modulecontract.h"

#include <functional>
#include <memory>

namespace tarvello::services {

class HostManagements;
class TableManagement;

// A module of the host whose screen is one of the host's managements (the general
// registry, the commission-on-discount tables). It is opened with calling data, and hands
// back through DataTransfer, as an array, the code the person chooses there.
class ManagementModule final : public host::ModuleContract, public host::CalledModule {
public:
    struct Screen {
        // What the person is asked to work in.
        QString name;
        ManagementDescription description;
        // Where the calling data open the management.
        std::function<ManagementOpening(const db::ValueList& callingData)> opening;
        // What is particular to the management, added once it is open.
        std::function<void(TableManagement&)> prepare;
    };

    ManagementModule(Screen screen, const HostManagements& managements);

    // "Dorvanti.CLSCO_TABANAGGEN", opened with a registry code and whether to show it; a new
    // entry gets the next free code.
    static std::unique_ptr<ManagementModule> registry(const HostManagements& managements);
    // "Caspello.CLSPA_PROVVSCONTI", opened with an empty value and the table's code.
    static std::unique_ptr<ManagementModule> discountTables(const HostManagements& managements);

    const QString& name() const { return m_screen.name; }
    const db::ValueList& callingData() const { return m_callingData; }

    host::Cinterface& contract() override { return *this; }
    void setCallingData(const db::ValueList& data) override { m_callingData = data; }
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_dataTransfer; }

    // The management's window; the call returns when the person leaves it.
    db::Value ShowForm() override;
    db::Value TransferData(const db::Value& Calling_parameters) override;

private:
    Screen m_screen;
    const HostManagements& m_managements; // Not owned.
    db::ValueList m_callingData;
    host::EventSource<host::DataTransferEvents> m_dataTransfer;
};

} // namespace tarvello::services
