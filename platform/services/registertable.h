#pragma once

#include "src/host/registermanagement.h"

namespace tarvello::services {

class HostManagements;

// The document-register management ("Sezionali"); a register chosen there goes back into the
// field.
class RegisterTable final : public host::RegisterManagement {
public:
    explicit RegisterTable(const HostManagements& managements)
        : m_managements(managements)
    {}

    void setModule(host::Cinterface* module) override { m_module = module; }
    void setField(controls::Field* field) override { m_field = field; }
    void registersManagement() override;

    host::Cinterface* module() const { return m_module; }

private:
    const HostManagements& m_managements; // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    controls::Field* m_field = nullptr;   // Not owned.
};

} // namespace tarvello::services
