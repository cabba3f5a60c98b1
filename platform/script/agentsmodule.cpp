#include "platform/script/agentsmodule.h"

#include "platform/services/moduleregistry.h"

namespace tarvello::script {

void registerAgentsModule(services::ModuleRegistry& registry, agenti::AgentiScreenFactory screens)
{
    registry.add(agentsModuleIdentifier(), [screens = std::move(screens)] {
        return std::make_unique<AgentsModule>(screens);
    });
}

} // namespace tarvello::script
