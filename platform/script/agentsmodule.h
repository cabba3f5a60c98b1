#pragma once

#include "src/host/agentiscreen.h"

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

// Registers the agents module, its screens made by the factory, under agentsModuleIdentifier().
void registerAgentsModule(services::ModuleRegistry& registry, agenti::AgentiScreenFactory screens);

} // namespace tarvello::script
