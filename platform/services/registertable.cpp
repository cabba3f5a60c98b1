#include "platform/services/registertable.h"

#include "platform/services/managementchoice.h"

namespace tarvello::services {

void RegisterTable::registersManagement()
{
    chooseIntoField(m_prompts, m_module, QStringLiteral("Sezionali"), QString(), m_field);
}

} // namespace tarvello::services
