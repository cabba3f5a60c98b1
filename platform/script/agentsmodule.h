#pragma once

#include "src/host/calledmodule.h"
#include "src/screen/clsmg_agenti.h"

#include <QString>

namespace tarvello::services {
class ModuleRegistry;
}

namespace tarvello::script {

// The programmatic identifier the host opens "Anagrafica agenti" by.
inline QString agentsModuleIdentifier()
{
    return QStringLiteral("MDLMG_AGENTI.CLSMG_AGENTI");
}

// The agents module as the host's module registry makes it: a CLSMG_AGENTI whose screens
// come from the factory given. The module is opened on one agent through its own properties
// (CodiceAgente, IDAGENTE, CalledById), not with calling data.
class AgentsModule final : public host::CalledModule {
public:
    explicit AgentsModule(agenti::AgentiScreenFactory screens)
        : m_module(std::move(screens))
    {}

    agenti::CLSMG_AGENTI& object() { return m_module; }
    host::Cinterface& contract() override { return m_module; }
    void setCallingData(const db::ValueList&) override {}
    host::EventSource<host::DataTransferEvents>& dataTransfer() override
    {
        return m_module.dataTransfer();
    }

private:
    agenti::CLSMG_AGENTI m_module;
};

// Registers the agents module, its screens made by the factory, under agentsModuleIdentifier().
void registerAgentsModule(services::ModuleRegistry& registry, agenti::AgentiScreenFactory screens);

} // namespace tarvello::script
